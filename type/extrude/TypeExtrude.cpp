#include "extrude/TypeExtrude.h"

#include "extrude/ExtrudeHostSteps.h"

#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <algorithm>
#include <iterator>

namespace type {

namespace {

// The short names of the inputs that change the solid's topology, besides
// "inputMesh" and "gridSize", in the order they are tested. "ufbv" names no
// attribute of the node; scenes have always carried the entry.
constexpr const char* kTopologyNames[] = {
    "exdv",
    "bevelStyle",
    "bdv",
    "ebb",
    "bbdv",
    "enEx",
    "ecs",
    "ebs",
    "ees",
    "cid",
    "bid",
    "eid",
    "did",
    "ufbv",
    "dcs",
    "vertexGroupIds",
    "vertsPerChar",
    "capComponents",
    "outComponents",
    "bevelComponents",
    "extrusionComponents",
    "charGroupId",
    "enableFrontBevel",
    "enableOuterBevel",
    "rbuf",
};

bool isTopologyName(const ZString& shortName) {
    return std::any_of(std::begin(kTopologyNames), std::end(kTopologyNames),
                       [&](const char* name) { return shortName == name; });
}

} // namespace

void TypeExtrude::postConstructor() {
    writeDefaultProfileCurves(thisZObject(), {extrudeCurve, frontBevelCurve, backBevelCurve}, kSourceUnit);
}

void TypeExtrude::emptyCaches() {
    m_faces.clear();
    m_colours.clear();
    m_shapes = {};
    m_mitres.clear();
    m_fields.clear();
}

ZStatus TypeExtrude::setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) {
    const ZObject attribute = plug.attribute();
    if (attribute == inputMesh || attribute == gridSize) {
        emptyCaches();
        m_rebuild = true;
    } else {
        ZPlug named = plug;
        if (named.isChild())
            named = named.parent();
        if (named.isElement())
            named = named.array();
        if (isTopologyName(named.partialName()))
            m_rebuild = true;
    }
    return ZPxNode::setDependentsDirty(plug, affected);
}

ZStatus TypeExtrude::preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) {
    if (evaluationNode.dirtyPlugExists(inputMesh) || evaluationNode.dirtyPlugExists(gridSize)) {
        emptyCaches();
        m_rebuild = true;
    } else {
        for (const ZObject* attribute :
             {&extrudeDivisions,    &bevelStyle,         &bevelDivisions,      &enableBackBevel,
              &backBevelDivisions,  &enableExtrusion,    &enableCapShader,     &enableBevelShader,
              &enableExtrudeShader, &capGroupId,         &bevelGroupId,        &extrudeGroupId,
              &defaultGroupId,      &rearBevelUsesFront, &enableFrontBevel,    &enableOuterBevel,
              &capComponents,       &bevelComponents,    &extrusionComponents, &vertsPerChar,
              &vertexGroupIds,      &charGroupId,        &outComponents,       &deleteCaps}) {
            if (evaluationNode.dirtyPlugExists(*attribute)) {
                m_rebuild = true;
                break;
            }
        }
    }
    return ZPxNode::preEvaluation(context, evaluationNode);
}

} // namespace type
