#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// Triangles of every face, grouped per face: face f owns triangles[faceTriangleStart[f] ..
// faceTriangleStart[f + 1]). Triangles hold vertex ids, so the table survives point moves.
struct Triangulation {
    std::vector<int32_t> faceTriangleStart{0};
    std::vector<Triangle> triangles;

    int32_t faceCount() const { return static_cast<int32_t>(faceTriangleStart.size()) - 1; }
    std::span<const Triangle> faceTriangles(int32_t face) const {
        if (face < 0 || face >= faceCount())
            return {};
        return std::span<const Triangle>(triangles).subspan(
            faceTriangleStart[face], faceTriangleStart[face + 1] - faceTriangleStart[face]);
    }
};

// Triangulates all faces in parallel. A face that cannot be cut (all points on a line, a
// non-finite coordinate) gets no triangles; nothing here fails or throws on bad geometry.
Triangulation triangulateFaces(const FaceLoops& faces, std::span<const Point3> points);

// Sum of the areas of `triangles`.
double triangleArea(std::span<const Triangle> triangles, std::span<const Point3> points);

} // namespace oz::mesh
