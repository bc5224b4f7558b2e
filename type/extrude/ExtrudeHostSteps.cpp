#include "extrude/ExtrudeHostSteps.h"

#include "extrude/VertexGroupIds.h"
#include "plugin/ApiError.h"

#include <OpenZyvo/ZArrayDataHandle.h>
#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZGlobal.h>
#include <algorithm>
#include <iostream>
#include <numeric>
#include <string>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_group.h>
#include <tuple>

namespace type {

namespace {

// Hole points of a cap land on the ring's own vertices.
constexpr double kCapHoleTolerance = 1e-10;
// From about this many points on, copying a solid's arrays for the mesh costs more than waiting
// for them, and the host indexes a mesh's points on all cores when a call first merges with them.
constexpr int kLargeSolid = 100000;

// Object groups below this index are the cap, bevel and extrusion groups.
constexpr unsigned int kFirstCharacterGroup = 3;

// The profile a new node starts with: a straight wall at the neutral value
// 0.5, and bevels straight for the first half, cut at 45 degrees, then flat.
// Drawn with the value across and the position up, as the curves are edited.
const ZDoubleArray kWallPositions{0.0, 0.333, 0.666, 1.0};
const ZDoubleArray kWallValues{0.5, 0.5, 0.5, 0.5};
const ZDoubleArray kBevelPositions{0.0, 0.5, 1.0, 1.0};
const ZDoubleArray kBevelValues{1.0, 1.0, 0.5, 0.0};

// A curve read from a scene keeps its points when it has this many.
constexpr unsigned int kKeptCurvePoints = 4;

std::vector<double> sampleCurve(const ZObject& node, const ZObject& attribute, int divisions,
                                const char* unit) {
    ZStatus status;
    const ZCurveAttribute curve(node, attribute, &status);
    ZDoubleArray values;
    if (!status) {
        reportApiError(status, unit);
        return {};
    }
    if (const ZStatus read = curve.getValuesAtPositions(ZDoubleArray(samplePositions(divisions)), values);
        !read) {
        reportApiError(read, unit);
        return {};
    }
    return values.asVector();
}

Point3 point3(const ZPoint& p) {
    return {p.x, p.y, p.z};
}

} // namespace

ZStatus layOutInput(const ZFnMesh& mesh, const ZPointArray& points, InputLayout& out, const char* unit) {
    ZIntArray holeInfo;
    ZIntArray holeVertices;
    ZStatus status;
    mesh.getHoles(holeInfo, holeVertices, &status);
    if (!status)
        return reportApiError(status, unit);
    const ZColor white(1.0f, 1.0f, 1.0f, 1.0f);
    ZColorArray colours;
    if (status = mesh.getVertexColors(colours, &white); !status)
        return reportApiError(status, unit);
    ZIntArray faceSizes;
    ZIntArray faceVertices;
    if (status = mesh.getVertices(faceSizes, faceVertices); !status)
        return reportApiError(status, unit);
    const auto faceCount = static_cast<int>(faceSizes.length());

    // The holes of each face, as entries of holeInfo (face, size, first), in the order given.
    std::vector<char> inHole(points.length(), 0);
    std::vector<int> holeStarts(static_cast<std::size_t>(faceCount) + 1, 0);
    for (unsigned int h = 0; h + 2 < holeInfo.length(); h += 3) {
        for (int i = 0; i < holeInfo[h + 1]; ++i)
            inHole[static_cast<std::size_t>(holeVertices[holeInfo[h + 2] + i])] = 1;
        if (holeInfo[h] >= 0 && holeInfo[h] < faceCount)
            ++holeStarts[static_cast<std::size_t>(holeInfo[h]) + 1];
    }
    std::partial_sum(holeStarts.begin(), holeStarts.end(), holeStarts.begin());
    std::vector<unsigned int> holesByFace(static_cast<std::size_t>(holeStarts.back()));
    std::vector<int> placed(holeStarts.begin(), holeStarts.end() - 1);
    for (unsigned int h = 0; h + 2 < holeInfo.length(); h += 3) {
        if (holeInfo[h] >= 0 && holeInfo[h] < faceCount)
            holesByFace[static_cast<std::size_t>(placed[static_cast<std::size_t>(holeInfo[h])]++)] = h;
    }

    std::vector<int> outer;
    unsigned int next = 0;
    for (int f = 0; f < faceCount; ++f) {
        const unsigned int first = next;
        next += static_cast<unsigned int>(faceSizes[static_cast<unsigned int>(f)]);
        outer.clear();
        for (unsigned int i = first; i < next; ++i)
            if (!inHole[static_cast<std::size_t>(faceVertices[i])])
                outer.push_back(faceVertices[i]);
        if (outer.size() < 3)
            continue;
        ZVector normal;
        if (status = mesh.getPolygonNormal(f, normal); !status)
            return reportApiError(status, unit);
        SolidFace face{{},  FaceFrame({normal.x, normal.y, normal.z}),
                       0.0, outer.front(),
                       f,   point3(points[outer.front()])};
        auto fromAnchor = [&](int v) {
            const Point3 p = point3(points[v]);
            return Point3{p.x - face.anchor.x, p.y - face.anchor.y, p.z - face.anchor.z};
        };
        face.outline.points.reserve(next - first);
        for (const int v : outer) {
            face.outline.points.push_back(face.frame.toPlane(fromAnchor(v)));
            face.height += face.frame.height(fromAnchor(v));
        }
        face.height /= static_cast<double>(outer.size());
        face.outline.loopSizes.push_back(static_cast<int>(outer.size()));
        for (int k = holeStarts[static_cast<std::size_t>(f)]; k < holeStarts[static_cast<std::size_t>(f) + 1];
             ++k) {
            const unsigned int h = holesByFace[static_cast<std::size_t>(k)];
            const int size = holeInfo[h + 1];
            if (size < 3)
                continue;
            for (int i = 0; i < size; ++i)
                face.outline.points.push_back(
                    face.frame.toPlane(fromAnchor(holeVertices[holeInfo[h + 2] + i])));
            face.outline.loopSizes.push_back(size);
        }
        out.faces.push_back(std::move(face));
        out.colours.push_back(colours[static_cast<unsigned int>(outer.front())]);
    }
    return ZStatus::kSuccess;
}

void writeDefaultProfileCurves(const ZObject& node, const ProfileCurves& curves, const char* unit) {
    ZStatus status;
    ZCurveAttribute back(node, curves.back, &status);
    if (!status)
        reportApiError(status, unit);
    ZCurveAttribute wall(node, curves.extrude, &status);
    if (!status)
        reportApiError(status, unit);
    ZCurveAttribute front(node, curves.front, &status);
    if (!status)
        reportApiError(status, unit);
    if (ZFileIO::isReadingFile() && back.numEntries() >= kKeptCurvePoints &&
        wall.numEntries() >= kKeptCurvePoints && front.numEntries() >= kKeptCurvePoints)
        return;
    for (auto [curve, positions, values] : {std::tuple{&back, &kBevelPositions, &kBevelValues},
                                            std::tuple{&wall, &kWallPositions, &kWallValues},
                                            std::tuple{&front, &kBevelPositions, &kBevelValues}}) {
        if (const ZStatus set = curve->setCurve(*positions, *values); !set)
            reportApiError(set, unit);
    }
}

ProfileSamples sampleProfileCurves(const ZObject& node, const ProfileCurves& curves,
                                   const ExtrudeSettings& settings, const char* unit) {
    ProfileSamples samples;
    if (settings.extrusion) {
        samples.extrude = sampleCurve(node, curves.extrude, settings.extrudeDivisions, unit);
        samples.front = sampleCurve(node, curves.front, settings.bevelDivisions, unit);
        samples.back = sampleCurve(node, settings.rearUsesFront ? curves.front : curves.back,
                                   settings.backBevelDivisions, unit);
    }
    return samples;
}

ZStatus writeEmptyMesh(ZDataBlock& block, const ZObject& outputMesh, const char* unit) {
    ZStatus status;
    ZFnMeshData dataFn;
    const ZObject empty = dataFn.create(&status);
    if (status)
        ZFnMesh().create(0, 0, ZPointArray(), ZIntArray(), ZIntArray(), empty, &status);
    if (status)
        status = block.outputValue(outputMesh).setZObject(empty);
    if (!status)
        return reportApiError(status, unit);
    return ZStatus::kSuccess;
}

void writeSolidPoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                      const ShapePoints& points, ZPointArray& out) {
    std::vector<ZPoint>& to = out.asVector();
    to.resize(points.starts.back());
    placeShapePoints(faces, shapes, points, [&](std::size_t first, std::span<const Point3> placed) {
        for (const Point3& p : placed)
            to[first++] = ZPoint(p.x, p.y, p.z);
    });
}

ZIntArray intArray(const std::vector<int>& values) {
    return ZIntArray(std::vector<int>(values.begin(), values.end()));
}

namespace {

// Every vertex takes the colour of the input face it was built from.
struct VertexColours {
    ZColorArray colours;
    ZIntArray vertices;
};

VertexColours vertexColours(const SolidMeshParts& parts) {
    const SolidTopology& topology = parts.topology;
    const auto count = static_cast<unsigned int>(std::max(topology.faceVertexStarts.back(), 0));
    VertexColours out{ZColorArray(count), ZIntArray(count)};
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, parts.faces.size(), 256),
                      [&](const tbb::blocked_range<std::size_t>& range) {
                          for (std::size_t f = range.begin(); f != range.end(); ++f) {
                              for (int v = topology.faceVertexStarts[f]; v < topology.faceVertexStarts[f + 1];
                                   ++v) {
                                  out.colours[static_cast<unsigned int>(v)] = parts.colours[f];
                                  out.vertices[static_cast<unsigned int>(v)] = v;
                              }
                          }
                      });
    return out;
}

// Lends a vector to API calls as a ZIntArray, and takes it back when it goes: the calls only read
// their arrays, and copying a solid's millions of ids costs more than a mesh's creation does.
class LentIntArray {
public:
    explicit LentIntArray(std::vector<int>& owner)
        : m_owner(owner)
        , m_array(std::move(owner)) {}
    ~LentIntArray() { m_owner = std::move(m_array.asVector()); }
    LentIntArray(const LentIntArray&) = delete;
    LentIntArray& operator=(const LentIntArray&) = delete;

    const ZIntArray& array() const { return m_array; }

private:
    std::vector<int>& m_owner;
    ZIntArray m_array;
};

// `lend` hands the topology's counts and connects to the mesh as they are, when nothing else
// reads them meanwhile.
ZStatus createSolidMesh(ZObject& data, ZFnMesh& mesh, const SolidMeshParts& parts, bool lend,
                        const char* unit) {
    SolidTopology& topology = parts.topology;
    ZStatus status;
    ZFnMeshData dataFn;
    data = dataFn.create(&status);
    if (!status)
        return reportApiError(status, unit);
    const auto faceCount = static_cast<int>(topology.faceCounts.size());
    if (lend) {
        const LentIntArray counts(topology.faceCounts);
        const LentIntArray connects(topology.faceConnects);
        mesh.create(topology.vertexCount, faceCount, parts.points, counts.array(), connects.array(), data,
                    &status);
    } else {
        mesh.create(topology.vertexCount, faceCount, parts.points, intArray(topology.faceCounts),
                    intArray(topology.faceConnects), data, &status);
    }
    if (!status)
        return reportApiError(status, unit);
    return ZStatus::kSuccess;
}

ZStatus addCapHoles(ZFnMesh& mesh, std::span<const CapHoles> capHoles, const SolidMeshParts& parts,
                    const char* unit, const char* holeFailure) {
    ZPointArray holePoints;
    ZIntArray loopSizes;
    for (const CapHoles& holes : capHoles) {
        holePoints.clear();
        for (const int v : holes.vertices) {
            holePoints.append(parts.points[v]);
        }
        loopSizes.asVector().assign(holes.loopSizes.begin(), holes.loopSizes.end());
        if (const ZStatus status = mesh.addHoles(holes.face, holePoints, loopSizes, true, kCapHoleTolerance);
            !status) {
            if (holeFailure)
                std::cout << holeFailure << std::flush;
            return reportApiError(status, unit);
        }
    }
    return ZStatus::kSuccess;
}

} // namespace

ZStatus writeSolidMesh(ZObject& data, const SolidMeshParts& parts, const char* unit,
                       const char* holeFailure) {
    // The uvs and the vertex colours are worked out on other threads. A small solid starts them
    // at once, beside the whole build. A large one is first created on all cores from the
    // topology's own arrays, lent to the mesh, and gets its first hole back, which indexes all of
    // its points on all cores; the work, which reads the topology, then runs beside the other
    // holes, mostly one core's work.
    const bool large = parts.topology.vertexCount >= kLargeSolid;
    SolidUvs uvs;
    VertexColours colours;
    tbb::task_group work;
    const auto startWork = [&] {
        work.run([&] { uvs = parts.uvs(); });
        work.run([&] { colours = vertexColours(parts); });
    };
    if (!large)
        startWork();
    ZFnMesh mesh;
    ZStatus built = createSolidMesh(data, mesh, parts, large, unit);
    const std::span<const CapHoles> capHoles = parts.topology.capHoles;
    const std::size_t first = large ? std::min<std::size_t>(1, capHoles.size()) : 0;
    if (built)
        built = addCapHoles(mesh, capHoles.first(first), parts, unit, holeFailure);
    if (built && large)
        startWork();
    if (built)
        built = addCapHoles(mesh, capHoles.subspan(first), parts, unit, holeFailure);
    work.wait();
    if (!built)
        return built;
    ZStatus status;
    const auto vertexCount = static_cast<unsigned int>(std::max(mesh.numVertices(), 0));
    if (vertexCount < colours.colours.length()) {
        colours.colours.setLength(vertexCount);
        colours.vertices.setLength(vertexCount);
    }
    if (status = mesh.setVertexColors(colours.colours, colours.vertices); !status)
        return reportApiError(status, unit);
    if (status = mesh.setUVs(ZFloatArray(std::move(uvs.u)), ZFloatArray(std::move(uvs.v))); !status)
        return reportApiError(status, unit);
    if (status = mesh.assignUVs(ZIntArray(std::move(uvs.faceUvCounts)), ZIntArray(std::move(uvs.uvIds)));
        !status)
        return reportApiError(status, unit);
    return ZStatus::kSuccess;
}

ZStatus writeSolidComponents(ZDataBlock& block, const ZObject& data,
                             std::initializer_list<ComponentGroup> groups, const char* unit) {
    ZFnGeometryData geometry(data);
    for (const ComponentGroup& group : groups) {
        ZStatus status;
        ZFnSingleIndexedComponent componentFn;
        const ZObject component = componentFn.create(ZFn::kMeshPolygonComponent, &status);
        if (status)
            status = componentFn.addElements(LentIntArray(group.faces).array());
        ZFnComponentListData listFn;
        ZObject list;
        if (status)
            list = listFn.create(&status);
        if (status)
            status = listFn.add(component);
        const auto groupId = static_cast<unsigned int>(group.id);
        if (status && !geometry.hasObjectGroup(groupId))
            status = geometry.addObjectGroup(groupId);
        if (status)
            status = geometry.addObjectGroupComponent(groupId, component);
        if (status)
            status = block.outputValue(group.attribute).setZObject(list);
        if (!status)
            return reportApiError(status, unit);
    }
    return ZStatus::kSuccess;
}

ZStatus writeCharacterGroups(ZDataBlock& block, const CharacterGroupPlugs& plugs, const ZString& nodeName,
                             const std::vector<SolidFace>& faces, const SolidTopology& topology,
                             const char* unit) {
    ZStatus status;
    const ZObject data = block.outputValue(plugs.outputMesh, &status).data();
    if (!status)
        return reportApiError(status, unit);
    std::vector<int> used;
    if (!data.isNull()) {
        ZFnGeometryData geometry(data);
        for (unsigned int i = geometry.objectGroupCount(); i > kFirstCharacterGroup; --i)
            if (status = geometry.removeObjectGroup(geometry.objectGroup(i - 1)); !status)
                return reportApiError(status, unit);

        std::vector<int> inputEnds;
        const ZObject totals = block.inputValue(plugs.vertsPerChar).data();
        if (!totals.isNull()) {
            ZDoubleArray values;
            ZFnDoubleArrayData(totals).copyTo(values);
            for (const double value : values)
                inputEnds.push_back(static_cast<int>(value));
        }
        std::vector<int> requested;
        ZArrayDataHandle ids = block.inputArrayValue(plugs.charGroupId, &status);
        if (!status)
            return reportApiError(status, unit);
        for (unsigned int i = 0; i < ids.elementCount(); ++i) {
            ids.jumpToArrayElement(i);
            requested.push_back(ids.inputValue().asInt());
        }

        const std::vector<int> ends = solidCharacterEnds(faces, topology, inputEnds);
        const VertexGroupIds resolved = resolveVertexGroupIds(requested, ends.size(), [&](int id) {
            return geometry.hasObjectGroup(static_cast<unsigned int>(id));
        });
        if (resolved.missing > 0) {
            const std::string command = "createExtruderGroupIds( \"" + nodeName.asStdString() + "\", " +
                                        std::to_string(resolved.missing) + ")";
            if (status = ZGlobal::executeCommandOnIdle(ZString(command.c_str())); !status)
                reportApiError(status, unit);
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
                return reportApiError(status, unit);
        }
        used = resolved.ids;
    }
    ZFnIntArrayData idsFn;
    const ZObject list = idsFn.create(intArray(used), &status);
    if (status)
        status = block.outputValue(plugs.vertexGroupIds).setZObject(list);
    if (status)
        status = block.setClean(plugs.vertexGroupIds);
    if (!status)
        return reportApiError(status, unit);
    return ZStatus::kSuccess;
}

} // namespace type
