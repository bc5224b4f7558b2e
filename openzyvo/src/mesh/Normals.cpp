#include "mesh/Normals.h"

#include <cmath>

namespace oz::mesh {

namespace {

double cornerAngle(Point3 previous, Point3 corner, Point3 next) {
    const Vector3 a = previous - corner;
    const Vector3 b = next - corner;
    const double angle = std::atan2(length(cross(a, b)), dot(a, b));
    return std::isfinite(angle) ? angle : 0.0;
}

// Calls visit(vertexId, weightedNormal) for every corner of `face`.
template <class Visit>
void forEachCorner(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Visit&& visit) {
    const Vector3 normal = faceNormal(faces, points, face);
    if (normal == Vector3{})
        return;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        const auto loop = faces.loop(face, l);
        const size_t n = loop.size();
        for (size_t i = 0; i < n; ++i) {
            const double angle =
                cornerAngle(points[loop[(i + n - 1) % n]], points[loop[i]], points[loop[(i + 1) % n]]);
            visit(loop[i], normal * angle);
        }
    }
}

} // namespace

Vector3 newellNormal(std::span<const Point3> points, std::span<const int32_t> loop) {
    Vector3 n;
    auto addEdge = [&](Point3 a, Point3 b) {
        n.x += (a.y - b.y) * (a.z + b.z);
        n.y += (a.z - b.z) * (a.x + b.x);
        n.z += (a.x - b.x) * (a.y + b.y);
    };
    if (loop.empty())
        return n;
    // The closing edge last and on its own: no division per point to wrap around.
    for (size_t i = 1; i < loop.size(); ++i)
        addEdge(points[loop[i - 1]], points[loop[i]]);
    addEdge(points[loop.back()], points[loop.front()]);
    return n;
}

Vector3 faceNormal(const FaceLoops& faces, std::span<const Point3> points, int32_t face) {
    return normalized(newellNormal(points, faces.loop(face, 0)));
}

std::vector<Vector3> angleWeightedVertexNormals(const FaceLoops& faces, std::span<const Point3> points) {
    std::vector<Vector3> normals(points.size());
    for (int32_t f = 0; f < faces.faceCount(); ++f)
        forEachCorner(faces, points, f, [&](int32_t v, Vector3 n) { normals[v] += n; });
    for (Vector3& n : normals)
        n = normalized(n);
    return normals;
}

Vector3 angleWeightedVertexNormal(const FaceLoops& faces, std::span<const Point3> points, int32_t vertex,
                                  std::span<const int32_t> vertexFaces) {
    Vector3 sum;
    for (const int32_t f : vertexFaces) {
        forEachCorner(faces, points, f, [&](int32_t v, Vector3 n) {
            if (v == vertex)
                sum += n;
        });
    }
    return normalized(sum);
}

} // namespace oz::mesh
