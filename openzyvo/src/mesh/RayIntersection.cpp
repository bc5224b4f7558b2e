#include "mesh/RayIntersection.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace oz::mesh {

namespace {

// Slab test: does the ray meet the box (grown by `pad`) at a distance in [0, maxDistance]?
bool hitsBox(const Ray& ray, Vector3 inverse, const BoundingBox& box, double pad, double maxDistance) {
    double near = 0.0;
    double far = maxDistance;
    const double origin[3] = {ray.origin.x, ray.origin.y, ray.origin.z};
    const double inv[3] = {inverse.x, inverse.y, inverse.z};
    const double lo[3] = {box.min.x - pad, box.min.y - pad, box.min.z - pad};
    const double hi[3] = {box.max.x + pad, box.max.y + pad, box.max.z + pad};
    for (int axis = 0; axis < 3; ++axis) {
        if (std::isinf(inv[axis])) {
            if (origin[axis] < lo[axis] || origin[axis] > hi[axis])
                return false;
            continue;
        }
        double t0 = (lo[axis] - origin[axis]) * inv[axis];
        double t1 = (hi[axis] - origin[axis]) * inv[axis];
        if (t0 > t1)
            std::swap(t0, t1);
        near = std::max(near, t0);
        far = std::min(far, t1);
        if (near > far)
            return false;
    }
    return true;
}

struct TriangleHit {
    double distance;
    double u; // weight of the second vertex
    double v; // weight of the third vertex
};

// Möller–Trumbore, two-sided.
std::optional<TriangleHit> hitTriangle(const Ray& ray, Point3 a, Point3 b, Point3 c, double tolerance) {
    const Vector3 e1 = b - a;
    const Vector3 e2 = c - a;
    const Vector3 p = cross(ray.direction, e2);
    const double det = dot(e1, p);
    if (det == 0.0 || !std::isfinite(det))
        return std::nullopt;
    const double invDet = 1.0 / det;
    const Vector3 s = ray.origin - a;
    const double u = dot(s, p) * invDet;
    if (u < -tolerance || u > 1.0 + tolerance)
        return std::nullopt;
    const Vector3 q = cross(s, e1);
    const double v = dot(ray.direction, q) * invDet;
    if (v < -tolerance || u + v > 1.0 + tolerance)
        return std::nullopt;
    return TriangleHit{dot(e2, q) * invDet, u, v};
}

} // namespace

Status closestIntersection(const Ray& input, double maxDistance, double tolerance,
                           const Triangulation& triangulation, std::span<const BoundingBox> faceBounds,
                           std::span<const Point3> points, RayHit& hit) {
    hit = RayHit{};
    const Ray ray{input.origin, normalized(input.direction)};
    if (ray.direction == Vector3{} || !isFinite(ray.origin) || !(maxDistance >= 0.0) || !(tolerance >= 0.0))
        return Status::InvalidArgument;

    const Vector3 inverse{1.0 / ray.direction.x, 1.0 / ray.direction.y, 1.0 / ray.direction.z};
    double best = maxDistance;
    for (int32_t f = 0; f < triangulation.faceCount(); ++f) {
        const BoundingBox& box = faceBounds[f];
        const double pad =
            tolerance * std::max({box.max.x - box.min.x, box.max.y - box.min.y, box.max.z - box.min.z});
        if (box.empty() || !hitsBox(ray, inverse, box, pad, best))
            continue;
        const auto triangles = triangulation.faceTriangles(f);
        for (size_t t = 0; t < triangles.size(); ++t) {
            const Triangle& tri = triangles[t];
            const auto h = hitTriangle(ray, points[tri[0]], points[tri[1]], points[tri[2]], tolerance);
            if (!h || h->distance < 0.0 || h->distance > best || (hit.hit && h->distance == best))
                continue;
            best = h->distance;
            hit.hit = true;
            hit.face = f;
            hit.triangle = static_cast<int32_t>(t);
            hit.triangleVertices = tri;
            hit.barycentric = {1.0 - h->u - h->v, h->u, h->v};
            hit.distance = h->distance;
            hit.point = ray.origin + ray.direction * h->distance;
        }
    }
    return Status::Success;
}

} // namespace oz::mesh
