#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <cstddef>
#include <cstdint>
#include <shared_mutex>
#include <span>
#include <unordered_map>
#include <vector>

namespace oz::mesh {

// Cuts of faces from earlier passes, kept across meshes. A text edited letter by letter brings
// the same outlines back in every new mesh, and a bevel folds alike at the same corner of every
// copy of a glyph: each such shape is then cut once, not once per edit. A shape is kept as its
// loop sizes and the offsets of its points from the first, all exact differences, and a face
// finds it only by comparing them exactly, so that a face that finds a cut is an exact translate
// of the face it was made for, and the cut fits it. Faces are looked up and kept from several
// threads at once. It holds a bounded number of points and starts over when full.
class ShapeLibrary {
public:
    // How a kept cut was made, so that a face taking it is counted as cut that way.
    enum class Cut : uint8_t { Planar, Tessellated };

    explicit ShapeLibrary(size_t maxPoints);

    // Appends the cut kept for the shape of `face` to `pattern` (point indices within the face)
    // and tells how it was made; false when none is kept.
    bool find(const FaceLoops& faces, std::span<const Point3> points, int32_t face, uint64_t hash,
              std::vector<Triangle>& pattern, Cut& how) const;
    // Keeps the cut of `face` unless its offsets are not exact.
    void keep(const FaceLoops& faces, std::span<const Point3> points, int32_t face, uint64_t hash,
              std::span<const Triangle> pattern, Cut how);

    size_t pointCount() const;

private:
    struct Shape {
        std::vector<int32_t> loopSizes;
        std::vector<Vector3> offsets; // of every point but the first
        std::vector<Triangle> pattern;
        Cut how;
    };

    static bool matches(const Shape& shape, const FaceLoops& faces, std::span<const Point3> points,
                        int32_t face);

    const size_t maxPoints_;
    mutable std::shared_mutex mutex_;
    std::unordered_multimap<uint64_t, Shape> shapes_;
    size_t points_ = 0;
};

// The library the runtime's meshes share.
ShapeLibrary& sharedShapeLibrary();

} // namespace oz::mesh
