#include "extrude/TypeExtrude.h"

#include "plugin/ApiError.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <algorithm>
#include <iterator>
#include <tuple>

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

// The profile a new node starts with: a straight wall at the neutral value
// 0.5, and bevels straight for the first half, cut at 45 degrees, then flat.
// Drawn with the value across and the position up, as the curves are edited.
const ZDoubleArray kWallPositions{0.0, 0.333, 0.666, 1.0};
const ZDoubleArray kWallValues{0.5, 0.5, 0.5, 0.5};
const ZDoubleArray kBevelPositions{0.0, 0.5, 1.0, 1.0};
const ZDoubleArray kBevelValues{1.0, 1.0, 0.5, 0.0};

// A curve read from a scene keeps its points when it has this many.
constexpr unsigned int kKeptCurvePoints = 4;

bool isTopologyName(const ZString& shortName) {
    return std::any_of(std::begin(kTopologyNames), std::end(kTopologyNames),
                       [&](const char* name) { return shortName == name; });
}

} // namespace

void TypeExtrude::postConstructor() {
    const ZObject node = thisZObject();
    ZStatus status;
    ZCurveAttribute back(node, backBevelCurve, &status);
    if (!status)
        reportApiError(status, kSourceUnit);
    ZCurveAttribute wall(node, extrudeCurve, &status);
    if (!status)
        reportApiError(status, kSourceUnit);
    ZCurveAttribute front(node, frontBevelCurve, &status);
    if (!status)
        reportApiError(status, kSourceUnit);
    if (ZFileIO::isReadingFile() && back.numEntries() >= kKeptCurvePoints &&
        wall.numEntries() >= kKeptCurvePoints && front.numEntries() >= kKeptCurvePoints)
        return;
    for (auto [curve, positions, values] : {std::tuple{&back, &kBevelPositions, &kBevelValues},
                                            std::tuple{&wall, &kWallPositions, &kWallValues},
                                            std::tuple{&front, &kBevelPositions, &kBevelValues}}) {
        if (const ZStatus set = curve->setCurve(*positions, *values); !set)
            reportApiError(set, kSourceUnit);
    }
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
