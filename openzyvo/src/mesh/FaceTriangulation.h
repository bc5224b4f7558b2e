#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/ShapeLibrary.h"
#include "mesh/Triangle.h"
#include "mesh/UninitialisedAllocator.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// How many faces took each way of being cut. Faces the planar cutter cannot take (loops that cross,
// touch or collapse, faces off their plane) fall back to the GLU sweep; for well-formed input
// such as text caps that should stay rare, and tests watch it.
struct TriangulationCounts {
    int32_t simple = 0;      // triangles and convex quads
    int32_t planar = 0;      // cut by ear clipping
    int32_t memo = 0;        // translated copies of a face cut earlier in the same pass
    int32_t tessellated = 0; // by the GLU sweep
    // Of the planar and tessellated faces, those whose cut an earlier pass made (see ShapeLibrary).
    int32_t reused = 0;
    // Of the planar faces, those that took the cut of an earlier face alike once it was proven to
    // fit them (see SimilarCuts).
    int32_t similar = 0;

    TriangulationCounts& operator+=(const TriangulationCounts& o) {
        simple += o.simple;
        planar += o.planar;
        memo += o.memo;
        tessellated += o.tessellated;
        reused += o.reused;
        similar += o.similar;
        return *this;
    }
};

// Triangles of every face, grouped per face: face f owns triangles[faceTriangleStart[f] ..
// faceTriangleStart[f + 1]). Triangles hold vertex ids, so the table survives point moves.
struct Triangulation {
    std::vector<int32_t> faceTriangleStart{0};
    std::vector<Triangle, UninitialisedAllocator<Triangle>> triangles;
    TriangulationCounts counts;

    int32_t faceCount() const { return static_cast<int32_t>(faceTriangleStart.size()) - 1; }
    std::span<const Triangle> faceTriangles(int32_t face) const {
        if (face < 0 || face >= faceCount())
            return {};
        return std::span<const Triangle>(triangles).subspan(
            faceTriangleStart[face], faceTriangleStart[face + 1] - faceTriangleStart[face]);
    }
};

// Triangulates all faces in parallel, wound counter-clockwise about each face's normal. A planar
// face whose loops are simple and properly nested is cut by ear clipping, with no triangle of
// zero area; translated copies of a face reuse its cut, and so do faces alike when the cut is
// proven to fit them. Anything else goes to the GLU sweep. A face that cannot be cut at all (all
// points on a line, a non-finite coordinate) gets no triangles; nothing here fails or throws on
// bad geometry. With a library, exact translates of
// faces cut in earlier passes take those cuts, and the faces cut here are kept there.
Triangulation triangulateFaces(const FaceLoops& faces, std::span<const Point3> points,
                               ShapeLibrary* library = nullptr);

// Sum of the areas of `triangles`.
double triangleArea(std::span<const Triangle> triangles, std::span<const Point3> points);

} // namespace oz::mesh
