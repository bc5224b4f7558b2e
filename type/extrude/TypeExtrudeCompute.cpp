#include "extrude/ExtrudeSettings.h"
#include "extrude/FaceShapes.h"
#include "extrude/ProfileRings.h"
#include "extrude/RingOffset.h"
#include "extrude/SolidAssembly.h"
#include "extrude/TypeExtrude.h"
#include "extrude/UvAtlas.h"
#include "extrude/VertexGroupIds.h"
#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZArrayDataHandle.h>
#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxCommand.h>
#include <string>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_group.h>
#include <unordered_map>
#include <vector>

namespace type {

namespace {

constexpr const char* kUnit = TypeExtrude::kSourceUnit;

// Hole points of a cap land on the ring's own vertices.
constexpr double kCapHoleTolerance = 1e-10;

// Object groups below this index are the cap, bevel and extrusion groups.
constexpr unsigned int kFirstCharacterGroup = 3;

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

std::vector<double> sampleCurve(const ZObject& node, const ZObject& attribute, int divisions) {
    ZStatus status;
    const ZCurveAttribute curve(node, attribute, &status);
    ZDoubleArray values;
    if (!status) {
        reportApiError(status, kUnit);
        return {};
    }
    if (const ZStatus read = curve.getValuesAtPositions(ZDoubleArray(samplePositions(divisions)), values);
        !read) {
        reportApiError(read, kUnit);
        return {};
    }
    return values.asVector();
}

Point3 point3(const ZPoint& p) {
    return {p.x, p.y, p.z};
}

// The input's faces laid into their own planes, with the colour of each.
struct InputLayout {
    std::vector<SolidFace> faces;
    std::vector<ZColor> colours;
};

ZStatus layOutInput(const ZFnMesh& mesh, const ZPointArray& points, InputLayout& out) {
    ZIntArray holeInfo;
    ZIntArray holeVertices;
    ZStatus status;
    mesh.getHoles(holeInfo, holeVertices, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZColor white(1.0f, 1.0f, 1.0f, 1.0f);
    ZColorArray colours;
    if (status = mesh.getVertexColors(colours, &white); !status)
        return reportApiError(status, kUnit);

    std::vector<bool> inHole(points.length(), false);
    std::unordered_map<int, std::vector<std::vector<int>>> holesOfFace;
    for (unsigned int h = 0; h + 2 < holeInfo.length(); h += 3) {
        std::vector<int> loop;
        for (int i = 0; i < holeInfo[h + 1]; ++i) {
            const int vertex = holeVertices[holeInfo[h + 2] + i];
            inHole[vertex] = true;
            loop.push_back(vertex);
        }
        holesOfFace[holeInfo[h]].push_back(std::move(loop));
    }

    const int faceCount = mesh.numPolygons(&status);
    if (!status)
        return reportApiError(status, kUnit);
    ZIntArray vertices;
    for (int f = 0; f < faceCount; ++f) {
        if (status = mesh.getPolygonVertices(f, vertices); !status)
            return reportApiError(status, kUnit);
        ZVector normal;
        if (status = mesh.getPolygonNormal(f, normal); !status)
            return reportApiError(status, kUnit);
        std::vector<int> outer;
        for (const int v : vertices)
            if (!inHole[v])
                outer.push_back(v);
        if (outer.size() < 3)
            continue;
        SolidFace face{
            {}, FaceFrame({normal.x, normal.y, normal.z}), 0.0, outer.front(), point3(points[outer.front()])};
        auto fromAnchor = [&](int v) {
            const Point3 p = point3(points[v]);
            return Point3{p.x - face.anchor.x, p.y - face.anchor.y, p.z - face.anchor.z};
        };
        for (const int v : outer) {
            face.outline.points.push_back(face.frame.toPlane(fromAnchor(v)));
            face.height += face.frame.height(fromAnchor(v));
        }
        face.height /= static_cast<double>(outer.size());
        face.outline.loopSizes.push_back(static_cast<int>(outer.size()));
        for (const std::vector<int>& loop : holesOfFace[f]) {
            if (loop.size() < 3)
                continue;
            for (const int v : loop)
                face.outline.points.push_back(face.frame.toPlane(fromAnchor(v)));
            face.outline.loopSizes.push_back(static_cast<int>(loop.size()));
        }
        out.faces.push_back(std::move(face));
        out.colours.push_back(colours[outer.front()]);
    }
    return ZStatus::kSuccess;
}

void copyPoints(const std::vector<Point3>& points, ZPointArray& out) {
    std::vector<ZPoint>& to = out.asVector();
    to.resize(points.size());
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, points.size(), 16384),
                      [&](const tbb::blocked_range<std::size_t>& range) {
                          for (std::size_t i = range.begin(); i != range.end(); ++i)
                              to[i] = ZPoint(points[i].x, points[i].y, points[i].z);
                      });
}

ZIntArray intArray(const std::vector<int>& values) {
    return ZIntArray(std::vector<int>(values.begin(), values.end()));
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
        ZFnMeshData dataFn;
        const ZObject empty = dataFn.create(&status);
        if (status)
            ZFnMesh().create(0, 0, ZPointArray(), ZIntArray(), ZIntArray(), empty, &status);
        if (status)
            status = block.outputValue(outputMesh).setZObject(empty);
        if (!status)
            return reportApiError(status, kUnit);
        m_topology = {};
        m_rebuild = true;
        return ZStatus::kFailure;
    }

    if (m_faces.empty()) {
        InputLayout layout;
        ZPointArray inputPoints;
        if (status = in.getPoints(inputPoints, ZSpace::kObject); !status)
            return reportApiError(status, kUnit);
        if (status = layOutInput(in, inputPoints, layout); !status)
            return status;
        m_faces = std::move(layout.faces);
        m_colours = std::move(layout.colours);
        m_shapes = faceShapes(m_faces);
    }
    const std::vector<int>& shapeFaces = m_shapes.firstFace;
    if (m_mitres.size() != shapeFaces.size()) {
        m_mitres.resize(shapeFaces.size());
        for (std::size_t s = 0; s < shapeFaces.size(); ++s)
            m_mitres[s] = mitres(m_faces[static_cast<std::size_t>(shapeFaces[s])].outline);
    }

    const ZObject node = thisZObject();
    ProfileSamples samples;
    if (settings.extrusion) {
        samples.extrude = sampleCurve(node, extrudeCurve, settings.extrudeDivisions);
        samples.front = sampleCurve(node, frontBevelCurve, settings.bevelDivisions);
        samples.back = sampleCurve(node, settings.rearUsesFront ? frontBevelCurve : backBevelCurve,
                                   settings.backBevelDivisions);
    }
    const Profile profile = sampleProfile(settings, samples);

    if (settings.mode == OffsetMode::kDistanceField && m_fields.size() != shapeFaces.size()) {
        std::vector<const FaceOutline*> outlines;
        for (const int face : shapeFaces)
            outlines.push_back(&m_faces[static_cast<std::size_t>(face)].outline);
        m_fields = distanceFields(outlines, m_mitres, settings.gridSize);
    }
    solidPoints(
        m_faces, m_shapes, profile,
        [&](std::size_t shape, double offset, std::vector<Point2>& out) {
            const DistanceFieldOffset* field = shape < m_fields.size() ? &m_fields[shape] : nullptr;
            offsetRing({m_faces[static_cast<std::size_t>(shapeFaces[shape])].outline, m_mitres[shape], field},
                       settings.mode, settings.bevelStyle, offset, out);
        },
        m_points);
    copyPoints(m_points, m_meshPoints);

    ZDataHandle output = block.outputValue(outputMesh, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZObject data = output.data();
    const bool cheap = !m_rebuild && !data.isNull() &&
                       ZFnMesh(data).numVertices() == static_cast<int>(m_points.size()) &&
                       m_topology.vertexCount == static_cast<int>(m_points.size());
    if (cheap) {
        if (status = ZFnMesh(data).setPoints(m_meshPoints, ZSpace::kObject); !status)
            return reportApiError(status, kUnit);
    } else {
        m_topology = solidTopology(m_faces, profile, settings.deleteCaps);
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
    // The uvs follow the topology and the outlines as read, not the distances, so a cheap update
    // keeps them. They are worked out on another thread while this one builds the mesh.
    SolidUvs uvs;
    tbb::task_group uvWork;
    uvWork.run([&] { uvs = solidUvs(m_faces, m_shapes, profile, m_topology, deleteCaps); });
    ZFnMesh mesh;
    const ZStatus built = buildMesh(data, mesh);
    uvWork.wait();
    if (!built)
        return built;
    ZStatus status;
    if (status = mesh.setUVs(ZFloatArray(std::move(uvs.u)), ZFloatArray(std::move(uvs.v))); !status)
        return reportApiError(status, kUnit);
    if (status = mesh.assignUVs(ZIntArray(std::move(uvs.faceUvCounts)), ZIntArray(std::move(uvs.uvIds)));
        !status)
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

ZStatus TypeExtrude::buildMesh(ZObject& data, ZFnMesh& mesh) {
    ZStatus status;
    ZFnMeshData dataFn;
    data = dataFn.create(&status);
    if (!status)
        return reportApiError(status, kUnit);
    mesh.create(m_topology.vertexCount, static_cast<int>(m_topology.faceCounts.size()), m_meshPoints,
                intArray(m_topology.faceCounts), intArray(m_topology.faceConnects), data, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZPointArray holePoints;
    for (const CapHoles& holes : m_topology.capHoles) {
        holePoints.clear();
        for (const int v : holes.vertices) {
            holePoints.append(m_meshPoints[v]);
        }
        if (status =
                mesh.addHoles(holes.face, holePoints, intArray(holes.loopSizes), true, kCapHoleTolerance);
            !status)
            return reportApiError(status, kUnit);
    }
    // Every vertex takes the colour of the input face it was built from.
    ZColorArray colours;
    ZIntArray vertices;
    const int vertexCount = mesh.numVertices();
    for (std::size_t f = 0; f < m_faces.size(); ++f) {
        for (int v = m_topology.faceVertexStarts[f];
             v < m_topology.faceVertexStarts[f + 1] && v < vertexCount; ++v) {
            colours.append(m_colours[f]);
            vertices.append(v);
        }
    }
    if (status = mesh.setVertexColors(colours, vertices); !status)
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

ZStatus TypeExtrude::writeComponents(ZDataBlock& block, const ZObject& data, int capId, int bevelId,
                                     int extrudeId) {
    const std::tuple<const ZObject*, const std::vector<int>*, int> groups[] = {
        {&capComponents, &m_topology.capFaces, capId},
        {&bevelComponents, &m_topology.bevelFaces, bevelId},
        {&extrusionComponents, &m_topology.extrusionFaces, extrudeId},
    };
    ZFnGeometryData geometry(data);
    for (const auto& [attribute, faces, id] : groups) {
        ZStatus status;
        ZFnSingleIndexedComponent componentFn;
        const ZObject component = componentFn.create(ZFn::kMeshPolygonComponent, &status);
        if (status)
            status = componentFn.addElements(intArray(*faces));
        ZFnComponentListData listFn;
        ZObject list;
        if (status)
            list = listFn.create(&status);
        if (status)
            status = listFn.add(component);
        const auto groupId = static_cast<unsigned int>(id);
        if (status && !geometry.hasObjectGroup(groupId))
            status = geometry.addObjectGroup(groupId);
        if (status)
            status = geometry.addObjectGroupComponent(groupId, component);
        if (status)
            status = block.outputValue(*attribute).setZObject(list);
        if (!status)
            return reportApiError(status, kUnit);
    }
    return ZStatus::kSuccess;
}

ZStatus TypeExtrude::groupCharacters(ZDataBlock& block) {
    ZStatus status;
    const ZObject data = block.outputValue(outputMesh, &status).data();
    if (!status)
        return reportApiError(status, kUnit);
    std::vector<int> used;
    if (!data.isNull()) {
        ZFnGeometryData geometry(data);
        for (unsigned int i = geometry.objectGroupCount(); i > kFirstCharacterGroup; --i)
            if (status = geometry.removeObjectGroup(geometry.objectGroup(i - 1)); !status)
                return reportApiError(status, kUnit);

        std::vector<int> inputEnds;
        const ZObject totals = block.inputValue(vertsPerChar).data();
        if (!totals.isNull()) {
            ZDoubleArray values;
            ZFnDoubleArrayData(totals).copyTo(values);
            for (const double value : values)
                inputEnds.push_back(static_cast<int>(value));
        }
        std::vector<int> requested;
        ZArrayDataHandle ids = block.inputArrayValue(charGroupId, &status);
        if (!status)
            return reportApiError(status, kUnit);
        for (unsigned int i = 0; i < ids.elementCount(); ++i) {
            ids.jumpToArrayElement(i);
            requested.push_back(ids.inputValue().asInt());
        }

        const std::vector<int> ends = solidCharacterEnds(m_faces, m_topology, inputEnds);
        const VertexGroupIds resolved = resolveVertexGroupIds(requested, ends.size(), [&](int id) {
            return geometry.hasObjectGroup(static_cast<unsigned int>(id));
        });
        if (resolved.missing > 0) {
            const std::string command = "createExtruderGroupIds( \"" + name().asStdString() + "\", " +
                                        std::to_string(resolved.missing) + ")";
            if (status = ZGlobal::executeCommandOnIdle(ZString(command.c_str())); !status)
                reportApiError(status, kUnit);
        }
        for (std::size_t k = 0; k < ends.size(); ++k) {
            ZFnSingleIndexedComponent componentFn;
            const ZObject component = componentFn.create(ZFn::kMeshVertComponent, &status);
            for (int v = k == 0 ? 0 : ends[k - 1]; status && v < ends[k]; ++v)
                status = componentFn.addElement(v);
            const auto id = static_cast<unsigned int>(resolved.ids[k]);
            if (status)
                status = geometry.addObjectGroup(id);
            if (status)
                status = geometry.addObjectGroupComponent(id, component);
            if (!status)
                return reportApiError(status, kUnit);
        }
        used = resolved.ids;
    }
    ZFnIntArrayData idsFn;
    const ZObject list = idsFn.create(intArray(used), &status);
    if (status)
        status = block.outputValue(vertexGroupIds).setZObject(list);
    if (status)
        status = block.setClean(vertexGroupIds);
    if (!status)
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

} // namespace type
