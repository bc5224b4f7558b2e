#include "data/MeshAccess.h"
#include "data/MeshIteration.h"
#include "data/MeshShapeCreator.h"
#include "data/SpaceTransform.h"

#include <OpenZyvo/ZFnMesh.h>
#include <span>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <vector>

using oz::MeshData;
using oz::MeshTarget;
using oz::mesh::Point3;

namespace {

// Arrays up to this long are converted on the calling thread.
constexpr unsigned int kConvertGrain = 16384;

// Runs `body` over ranges of [0, count): on all cores for a long array, since a solid of text
// writes hundreds of thousands of points on every update. The holes of its caps come a few dozen
// points at a time, by the thousand, and waking other threads for each would cost more than the
// work.
template <class Body> void forEachPoint(unsigned int count, const Body& body) {
    if (count <= kConvertGrain)
        body(tbb::blocked_range<unsigned int>(0, count));
    else
        tbb::parallel_for(tbb::blocked_range<unsigned int>(0, count, kConvertGrain), body);
}

// Converts into `out` (as long as `points`).
template <class Points> void convertPoints(const Points& points, std::span<Point3> out) {
    forEachPoint(points.length(), [&](const tbb::blocked_range<unsigned int>& range) {
        for (unsigned int i = range.begin(); i != range.end(); ++i)
            out[i] = oz::toKernel(points[i]);
    });
}

template <class Points> oz::mesh::PointArray kernelPoints(const Points& points) {
    oz::mesh::PointArray out(points.length());
    convertPoints(points, out);
    return out;
}

template <class Points> ZStatus readPoints(MeshTarget* target, Points& out, ZSpace::Space space) {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    const auto points = mesh->points();
    const auto count = static_cast<unsigned int>(points.size());
    out.setLength(count);
    // Nodes read their input in object space, every point on each update (a deformer on every
    // frame): without a matrix the points are only converted.
    if (transform->isIdentity()) {
        forEachPoint(count, [&](const tbb::blocked_range<unsigned int>& range) {
            for (unsigned int i = range.begin(); i != range.end(); ++i)
                out[i] = oz::toPoint(points[i]);
        });
        return ZStatus::kSuccess;
    }
    for (unsigned int i = 0; i < count; ++i)
        out[i] = transform->pointToSpace(points[i]);
    return ZStatus::kSuccess;
}

template <class Points> ZStatus writePoints(MeshTarget* target, const Points& points, ZSpace::Space space) {
    if (!target)
        return ZStatus::kInvalidParameter;
    const auto transform = oz::SpaceTransform::make(*target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    // Nodes write their output in object space, every point of it on each update of a shape
    // value: without a matrix the points are only converted.
    if (transform->isIdentity()) {
        return oz::editMesh(target, MeshTarget::Edit::kPoints, [&](MeshData& data) {
            return oz::toStatus(data.mesh.fillPoints(
                points.length(), [&](std::span<Point3> out) { convertPoints(points, out); }));
        });
    }
    std::vector<Point3> moved;
    moved.reserve(points.length());
    for (const auto& p : points)
        moved.push_back(transform->pointFromSpace(ZPoint(p)));
    return oz::editMesh(target, MeshTarget::Edit::kPoints,
                        [&](MeshData& data) { return oz::toStatus(data.mesh.setPoints(moved)); });
}

template <class Points>
ZObject createMesh(ZFnMesh& fn, int numVertices, int numPolygons, const Points& vertexArray,
                   const ZIntArray& polygonCounts, const ZIntArray& polygonConnects, ZStatus* status) {
    if (numVertices < 0 || static_cast<unsigned int>(numVertices) != vertexArray.length() ||
        numPolygons < 0 || static_cast<unsigned int>(numPolygons) != polygonCounts.length()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    auto points = kernelPoints(vertexArray);
    const ZStatus built =
        oz::editMesh(oz::meshTargetOf(fn.object()), MeshTarget::Edit::kTopology, [&](MeshData& data) {
            return oz::toStatus(
                data.mesh.create(std::move(points), polygonCounts.asVector(), polygonConnects.asVector()));
        });
    oz::setStatus(status, built);
    return built ? fn.object() : ZObject();
}

} // namespace

ZFnMesh::ZFnMesh(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

bool ZFnMesh::hasObj(const ZObject& object) const {
    return (object.hasFn(ZFn::kMesh) || object.hasFn(ZFn::kMeshData)) && oz::meshTargetOf(object);
}

ZStatus ZFnMesh::setObject(const ZObject& object) {
    const ZStatus status = ZFnBase::setObject(object);
    m_target = status ? oz::meshTargetOf(m_object) : nullptr;
    return status;
}

ZStatus ZFnMesh::attachOwner(const ZObject& parentOrOwner) {
    if (oz::meshTargetOf(parentOrOwner))
        return setObject(parentOrOwner);
    const oz::MeshShapeCreator createShape = oz::meshShapeCreator();
    if (!createShape)
        return ZStatus::kInvalidParameter;
    ZStatus status;
    const ZObject shape = createShape(parentOrOwner, status);
    return status ? setObject(shape) : status;
}

ZObject ZFnMesh::create(int numVertices, int numPolygons, const ZPointArray& vertexArray,
                        const ZIntArray& polygonCounts, const ZIntArray& polygonConnects,
                        const ZObject& parentOrOwner, ZStatus* status) {
    if (const ZStatus attached = attachOwner(parentOrOwner); !attached) {
        oz::setStatus(status, attached);
        return ZObject();
    }
    return createMesh(*this, numVertices, numPolygons, vertexArray, polygonCounts, polygonConnects, status);
}

ZObject ZFnMesh::create(int numVertices, int numPolygons, const ZFloatPointArray& vertexArray,
                        const ZIntArray& polygonCounts, const ZIntArray& polygonConnects,
                        const ZObject& parentOrOwner, ZStatus* status) {
    if (const ZStatus attached = attachOwner(parentOrOwner); !attached) {
        oz::setStatus(status, attached);
        return ZObject();
    }
    return createMesh(*this, numVertices, numPolygons, vertexArray, polygonCounts, polygonConnects, status);
}

int ZFnMesh::addPolygon(const ZPointArray& vertexArray, const ZIntArray& loopCounts, bool mergeVertices,
                        double pointTolerance, const ZObject& parentOrOwner, ZStatus* status) {
    if (!parentOrOwner.isNull() || !m_target) {
        if (const ZStatus attached = attachOwner(parentOrOwner); !attached) {
            oz::setStatus(status, attached);
            return -1;
        }
    }
    const auto points = kernelPoints(vertexArray);
    int32_t face = -1;
    const ZStatus added = oz::editMesh(m_target, MeshTarget::Edit::kTopology, [&](MeshData& data) {
        return oz::toStatus(
            data.mesh.addPolygon(points, loopCounts.asVector(), mergeVertices, pointTolerance, face));
    });
    oz::setStatus(status, added);
    return added ? face : -1;
}

int ZFnMesh::addPolygon(const ZPointArray& vertexArray, bool mergeVertices, double pointTolerance,
                        const ZObject& parentOrOwner, ZStatus* status) {
    const ZIntArray loopCounts{static_cast<int>(vertexArray.length())};
    return addPolygon(vertexArray, loopCounts, mergeVertices, pointTolerance, parentOrOwner, status);
}

ZStatus ZFnMesh::addHoles(int faceIndex, const ZPointArray& vertexArray, const ZIntArray& loopCounts,
                          bool mergeVertices, double pointTolerance) {
    const auto points = kernelPoints(vertexArray);
    return oz::editMesh(m_target, MeshTarget::Edit::kTopology, [&](MeshData& data) {
        return oz::toStatus(
            data.mesh.addHoles(faceIndex, points, loopCounts.asVector(), mergeVertices, pointTolerance));
    });
}

int ZFnMesh::getHoles(ZIntArray& holeInfo, ZIntArray& holeVertices, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    if (!mesh)
        return 0;
    oz::mesh::HoleList holes = mesh->holes();
    holeInfo.asVector() = std::move(holes.info);
    holeVertices.asVector() = std::move(holes.vertices);
    return static_cast<int>(holeInfo.length() / 3);
}

ZObject ZFnMesh::copy(const ZObject& source, const ZObject& parentOrOwner, ZStatus* status) {
    MeshTarget* from = oz::meshTargetOf(source);
    const MeshData* original = from ? from->meshForRead() : nullptr;
    if (!original) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    // Taken before the owner is touched: copying a shape onto itself may replace its data.
    oz::mesh::Mesh mesh = original->mesh;
    std::vector<oz::ObjectGroup> groups = original->objectGroups;
    if (const ZStatus attached = attachOwner(parentOrOwner); !attached) {
        oz::setStatus(status, attached);
        return ZObject();
    }
    const ZStatus copied = oz::editMesh(m_target, MeshTarget::Edit::kTopology, [&](MeshData& data) {
        data.mesh = std::move(mesh);
        data.objectGroups = std::move(groups);
        return ZStatus(ZStatus::kSuccess);
    });
    oz::setStatus(status, copied);
    return copied ? m_object : ZObject();
}

int ZFnMesh::numVertices(ZStatus* status) const {
    return oz::elementCount(m_target, oz::MeshElement::kVertex, status);
}

int ZFnMesh::numPolygons(ZStatus* status) const {
    return oz::elementCount(m_target, oz::MeshElement::kFace, status);
}

int ZFnMesh::numFaceVertices(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    return mesh ? mesh->faceVertexCount() : 0;
}

int ZFnMesh::numEdges(ZStatus* status) const {
    return oz::elementCount(m_target, oz::MeshElement::kEdge, status);
}

int ZFnMesh::numNormals(ZStatus* status) const {
    return numFaceVertices(status);
}

int ZFnMesh::polygonVertexCount(int polygonId, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    if (!mesh)
        return 0;
    if (polygonId < 0 || polygonId >= mesh->faceCount()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    return static_cast<int>(mesh->faceVertices(polygonId).size());
}

ZStatus ZFnMesh::getPolygonVertices(int polygonId, ZIntArray& vertexList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    if (polygonId < 0 || polygonId >= mesh->faceCount())
        return ZStatus::kInvalidParameter;
    const auto ids = mesh->faceVertices(polygonId);
    vertexList.asVector().assign(ids.begin(), ids.end());
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getVertices(ZIntArray& vertexCount, ZIntArray& vertexList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    vertexCount.setLength(static_cast<unsigned int>(mesh->faceCount()));
    auto& ids = vertexList.asVector();
    ids.clear();
    ids.reserve(static_cast<size_t>(mesh->faceVertexCount()));
    for (int32_t f = 0; f < mesh->faceCount(); ++f) {
        const auto face = mesh->faceVertices(f);
        vertexCount[static_cast<unsigned int>(f)] = static_cast<int>(face.size());
        ids.insert(ids.end(), face.begin(), face.end());
    }
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getEdgeVertices(int edgeId, int (&vertexList)[2]) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto topology = mesh->topology();
    if (edgeId < 0 || edgeId >= topology->edgeCount())
        return ZStatus::kInvalidParameter;
    vertexList[0] = topology->edgeVertices[static_cast<size_t>(edgeId)][0];
    vertexList[1] = topology->edgeVertices[static_cast<size_t>(edgeId)][1];
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getPoints(ZPointArray& vertexArray, ZSpace::Space space) const {
    return readPoints(m_target, vertexArray, space);
}

ZStatus ZFnMesh::getPoints(ZFloatPointArray& vertexArray, ZSpace::Space space) const {
    return readPoints(m_target, vertexArray, space);
}

ZStatus ZFnMesh::setPoints(const ZPointArray& vertexArray, ZSpace::Space space) {
    return writePoints(m_target, vertexArray, space);
}

ZStatus ZFnMesh::setPoints(const ZFloatPointArray& vertexArray, ZSpace::Space space) {
    return writePoints(m_target, vertexArray, space);
}

ZStatus ZFnMesh::getPoint(int vertexId, ZPoint& point, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    const auto p = mesh->point(vertexId);
    if (!transform || !p)
        return ZStatus::kInvalidParameter;
    point = transform->pointToSpace(*p);
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::setPoint(int vertexId, const ZPoint& point, ZSpace::Space space) {
    if (!m_target)
        return ZStatus::kInvalidParameter;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    return oz::editMesh(m_target, MeshTarget::Edit::kPoints, [&](MeshData& data) {
        return oz::toStatus(data.mesh.setPoint(vertexId, transform->pointFromSpace(point)));
    });
}
