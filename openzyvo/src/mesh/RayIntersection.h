#pragma once

#include "mesh/BoundingBox.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/Status.h"
#include "mesh/Vec3.h"

#include <array>
#include <cstdint>
#include <span>

namespace oz::mesh {

struct Ray {
    Point3 origin;
    Vector3 direction; // any non-zero length; distances are measured in scene units regardless
};

struct RayHit {
    bool hit = false;
    Point3 point;
    int32_t face = -1;
    int32_t triangle = -1; // index among the face's triangles
    Triangle triangleVertices{-1, -1, -1};
    std::array<double, 3> barycentric{}; // weights of triangleVertices that give `point`
    double distance = 0.0;
};

// Closest hit of `ray` with the triangles, at a distance in [0, maxDistance]. Both sides of a
// triangle count. `tolerance` widens each triangle by that much in barycentric terms, so rays
// along a shared edge do not slip between two triangles. Faces whose box the ray misses are
// skipped without looking at their triangles. Fails on a zero or non-finite direction, a
// non-finite origin, or a negative maxDistance or tolerance.
Status closestIntersection(const Ray& ray, double maxDistance, double tolerance,
                           const Triangulation& triangulation, std::span<const BoundingBox> faceBounds,
                           std::span<const Point3> points, RayHit& hit);

} // namespace oz::mesh
