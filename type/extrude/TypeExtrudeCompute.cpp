#include "extrude/ExtrudeHostSteps.h"
#include "extrude/ExtrudeSettings.h"
#include "extrude/FaceShapes.h"
#include "extrude/ProfileRings.h"
#include "extrude/RingOffset.h"
#include "extrude/SolidAssembly.h"
#include "extrude/TypeExtrude.h"
#include "extrude/UvAtlas.h"
#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxCommand.h>
#include <tbb/parallel_for.h>
#include <vector>

namespace type {

namespace {

constexpr const char* kUnit = TypeExtrude::kSourceUnit;

bool isSolidOutput(const ZObject& attribute) {
    for (const ZObject* output :
         {&TypeExtrude::outputMesh, &TypeExtrude::outComponents, &TypeExtrude::capComponents,
          &TypeExtrude::bevelComponents, &TypeExtrude::extrusionComponents})
        if (attribute == *output)
            return true;
    return false;
}

ExtrudeAttributes readAttributes(ZDataBlock& block) {
    using T = TypeExtrude;
    ExtrudeAttributes a;
    a.gridSize = block.inputValue(T::gridSize).asInt();
    a.mode = block.inputValue(T::mode).asShort();
    a.bevelOffset = block.inputValue(T::bevelOffset).asFloat();
    a.bevelStyle = block.inputValue(T::bevelStyle).asShort();
    a.enableOuterBevel = block.inputValue(T::enableOuterBevel).asBool();
    a.enableFrontBevel = block.inputValue(T::enableFrontBevel).asBool();
    a.deleteCaps = block.inputValue(T::deleteCaps).asBool();
    a.bevelDistance = block.inputValue(T::bevelDistance).asFloat();
    a.bevelDivisions = block.inputValue(T::bevelDivisions).asInt();
    a.enableBackBevel = block.inputValue(T::enableBackBevel).asBool();
    a.backBevelDistance = block.inputValue(T::backBevelDistance).asFloat();
    a.backBevelDivisions = block.inputValue(T::backBevelDivisions).asInt();
    a.backBevelOffset = block.inputValue(T::backBevelOffset).asFloat();
    a.rearBevelUsesFront = block.inputValue(T::rearBevelUsesFront).asBool();
    a.enableExtrusion = block.inputValue(T::enableExtrusion).asBool();
    a.extrudeDistance = block.inputValue(T::extrudeDistance).asFloat();
    a.extrudeDivisions = block.inputValue(T::extrudeDivisions).asInt();
    a.extrudeOffset = block.inputValue(T::extrudeOffset).asFloat();
    return a;
}

} // namespace

ZStatus TypeExtrude::compute(const ZPlug& plug, ZDataBlock& block) {
    const ZObject attribute = plug.attribute();
    const bool grouping = attribute == vertexGroupIds;
    if (!grouping && !isSolidOutput(attribute))
        return ZStatus::kUnknownParameter;
    if (!grouping || !block.isClean(outputMesh)) {
        if (const ZStatus built = buildSolid(block); !built)
            return built;
    }
    if (grouping)
        return groupCharacters(block);
    return ZStatus::kSuccess;
}

ZStatus TypeExtrude::buildSolid(ZDataBlock& block) {
    ZStatus status;
    const ZObject input = block.inputValue(inputMesh, &status).asMesh();
    if (!status || input.isNull()) {
        ZPxCommand::displayError(messages::text(messages::kTypeExtrudeNoMesh));
        return ZStatus::kFailure;
    }
    const ExtrudeSettings settings = resolveExtrudeSettings(readAttributes(block));
    const int capId = block.inputValue(capGroupId).asInt();
    const int bevelId = block.inputValue(bevelGroupId).asInt();
    const int extrudeId = block.inputValue(extrudeGroupId).asInt();

    const ZFnMesh in(input);
    const int inputVertices = in.numVertices(&status);
    if (!status)
        return reportApiError(status, kUnit);
    if (inputVertices < 3) {
        ZGlobal::displayWarning(messages::text(messages::kTypeSVGNoValidInput));
        if (status = writeEmptyMesh(block, outputMesh, kUnit); !status)
            return status;
        m_topology = {};
        m_rebuild = true;
        return ZStatus::kFailure;
    }

    if (m_faces.empty()) {
        InputLayout layout;
        ZPointArray inputPoints;
        if (status = in.getPoints(inputPoints, ZSpace::kObject); !status)
            return reportApiError(status, kUnit);
        if (status = layOutInput(in, inputPoints, layout, kUnit); !status)
            return status;
        m_faces = std::move(layout.faces);
        m_colours = std::move(layout.colours);
        m_shapes = faceShapes(m_faces);
    }
    const std::vector<int>& shapeFaces = m_shapes.firstFace;
    if (m_mitres.size() != shapeFaces.size()) {
        m_mitres.resize(shapeFaces.size());
        tbb::parallel_for(std::size_t{0}, shapeFaces.size(), [&](std::size_t s) {
            m_mitres[s] = mitres(m_faces[static_cast<std::size_t>(shapeFaces[s])].outline);
        });
    }

    const ZObject node = thisZObject();
    const ProfileSamples samples =
        sampleProfileCurves(node, {extrudeCurve, frontBevelCurve, backBevelCurve}, settings, kUnit);
    const Profile profile = sampleProfile(settings, samples);

    if (settings.mode == OffsetMode::kDistanceField && m_fields.size() != shapeFaces.size()) {
        std::vector<const FaceOutline*> outlines;
        for (const int face : shapeFaces)
            outlines.push_back(&m_faces[static_cast<std::size_t>(face)].outline);
        m_fields = m_fieldCache.fields(outlines, m_mitres, settings.gridSize);
    }
    const ShapePoints points = shapePoints(
        m_faces, m_shapes, profile, [&](std::size_t shape, double offset, std::vector<Point2>& out) {
            const DistanceFieldOffset* field = shape < m_fields.size() ? m_fields[shape].get() : nullptr;
            offsetRing({m_faces[static_cast<std::size_t>(shapeFaces[shape])].outline, m_mitres[shape], field},
                       settings.mode, settings.bevelStyle, offset, out);
        });
    writeSolidPoints(m_faces, m_shapes, points, m_meshPoints);
    const auto vertexCount = static_cast<int>(m_meshPoints.length());

    ZDataHandle output = block.outputValue(outputMesh, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZObject data = output.data();
    const bool cheap = !m_rebuild && !data.isNull() && ZFnMesh(data).numVertices() == vertexCount &&
                       m_topology.vertexCount == vertexCount;
    if (cheap) {
        if (status = ZFnMesh(data).setPoints(m_meshPoints, ZSpace::kObject); !status)
            return reportApiError(status, kUnit);
    } else {
        m_topology = solidTopology(m_faces, m_shapes, profile, settings.deleteCaps);
        if (status = writeMesh(data, profile, settings.deleteCaps); !status)
            return status;
        if (status = writeComponents(block, data, capId, bevelId, extrudeId); !status)
            return status;
        if (status = output.setZObject(data); !status)
            return reportApiError(status, kUnit);
    }
    for (const ZObject* clean :
         {&outputMesh, &outComponents, &capComponents, &bevelComponents, &extrusionComponents})
        if (status = block.setClean(*clean); !status)
            return reportApiError(status, kUnit);
    m_rebuild = false;
    return ZStatus::kSuccess;
}

ZStatus TypeExtrude::writeMesh(ZObject& data, const Profile& profile, bool deleteCaps) {
    // The uvs follow the topology and the outlines as read, not the distances, so
    // a cheap update keeps them.
    return writeSolidMesh(data,
                          {m_topology, m_meshPoints, m_faces, m_colours,
                           [&] {
                               return solidUvs(m_faces, m_shapes, profile, m_topology, deleteCaps);
                           }},
                          kUnit);
}

ZStatus TypeExtrude::writeComponents(ZDataBlock& block, const ZObject& data, int capId, int bevelId,
                                     int extrudeId) {
    return writeSolidComponents(block, data,
                                {{capComponents, m_topology.capFaces, capId},
                                 {bevelComponents, m_topology.bevelFaces, bevelId},
                                 {extrusionComponents, m_topology.extrusionFaces, extrudeId}},
                                kUnit);
}

ZStatus TypeExtrude::groupCharacters(ZDataBlock& block) {
    return writeCharacterGroups(block, {outputMesh, vertsPerChar, charGroupId, vertexGroupIds}, name(),
                                m_faces, m_topology, kUnit);
}

} // namespace type
