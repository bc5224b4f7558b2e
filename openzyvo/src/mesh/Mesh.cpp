#include "mesh/Mesh.h"

#include "mesh/Normals.h"

#include <tbb/parallel_for.h>

namespace oz::mesh {

Mesh::Mesh()
    : uvSets_{Shared<UvChannel>(UvChannel{UvSet{std::string(kDefaultUvSet), {}, {}}, {}})} {}

std::optional<Point3> Mesh::point(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount())
        return std::nullopt;
    return points_.read()[vertex];
}

Status Mesh::setPoints(std::span<const Point3> points) {
    return fillPoints(points.size(),
                      [&](std::span<Point3> own) { std::copy(points.begin(), points.end(), own.begin()); });
}

Status Mesh::fillPoints(size_t count, const std::function<void(std::span<Point3>)>& fill) {
    if (count != points_.read().size())
        return Status::SizeMismatch;
    // Every point is overwritten, so points still shared with a copy are not copied first.
    fill(points_.overwrite([count] { return PointArray(count); }));
    pointsMoved();
    return Status::Success;
}

Status Mesh::setPoint(int32_t vertex, Point3 p) {
    if (vertex < 0 || vertex >= vertexCount())
        return Status::InvalidIndex;
    points_.write()[vertex] = p;
    pointsMoved();
    return Status::Success;
}

BoundingBox Mesh::boundingBox() const {
    BoundingBox box;
    for (const Point3& p : points_.read())
        box.expand(p);
    return box;
}

std::shared_ptr<const Topology> Mesh::topology() const {
    return topology_.get(topologyVersion_, [&] { return buildTopology(faces_.read(), vertexCount()); });
}

namespace {

// Below this many face-vertices a mesh is cut when it is asked for: a task and the shares of the
// data it reads cost more than the cut.
constexpr int32_t kPreparedFaceVertices = 65536;

Triangulation cutFaces(const FaceLoops& faces, std::span<const Point3> points) {
    return triangulateFaces(faces, points, &sharedShapeLibrary());
}

} // namespace

std::shared_ptr<const Triangulation> Mesh::triangulation() const {
    return triangulation_.get(topologyVersion_, [&] { return cutFaces(faces_.read(), points_.read()); });
}

void Mesh::prepareTriangulation() const {
    if (faceVertexCount() < kPreparedFaceVertices)
        return;
    // The task holds shares of the faces and points, so that the mesh may change or go meanwhile.
    triangulation_.buildAhead(topologyVersion_, [faces = faces_, points = points_] {
        return cutFaces(faces.read(), points.read());
    });
}

std::shared_ptr<const std::vector<int32_t>> Mesh::faceVertexOffsets() const {
    return faceOffsets_.get(topologyVersion_, [&] { return faces_.read().faceVertexOffsets(); });
}

std::shared_ptr<const std::vector<BoundingBox>> Mesh::faceBounds() const {
    return faceBounds_.get(geometryVersion_, [&] {
        std::vector<BoundingBox> bounds(static_cast<size_t>(faceCount()));
        tbb::parallel_for(int32_t{0}, faceCount(), [&](int32_t f) {
            for (const int32_t v : faces_.read().faceVertices(f))
                bounds[f].expand(points_.read()[v]);
        });
        return bounds;
    });
}

std::optional<double> Mesh::triangulatedArea(int32_t face) const {
    if (face < 0 || face >= faceCount())
        return std::nullopt;
    return triangleArea(triangulation()->faceTriangles(face), points_.read());
}

Status Mesh::closestIntersection(const Ray& ray, double maxDistance, double tolerance, RayHit& hit) const {
    return oz::mesh::closestIntersection(ray, maxDistance, tolerance, *triangulation(), *faceBounds(),
                                         points_.read(), hit);
}

} // namespace oz::mesh
