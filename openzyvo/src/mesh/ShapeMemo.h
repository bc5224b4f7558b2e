#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// A face's shape up to translation: its loop sizes and every point relative to the first one. Only
// faces whose offsets are exact differences are keyed, so that two faces with equal keys are exact
// translates of each other and the same cut fits both: every turn of every triangle is the same.
struct ShapeKey {
    std::vector<int32_t> loopSizes;
    std::vector<Vector3> offsets;
    uint64_t hash = 0;

    friend bool operator==(const ShapeKey&, const ShapeKey&) = default;
};

// Fills `key` for `face`. Returns false when an offset cannot be represented exactly; such a face
// is not memoised.
bool makeShapeKey(const FaceLoops& faces, std::span<const Point3> points, int32_t face, ShapeKey& key);

// Triangle patterns (point indices within the face) of the shapes cut so far. Repeated letters
// of a text are translated copies of one outline: each is cut once. Keys and patterns live in a
// few flat arrays, so that a pass over thousands of distinct faces stores each without allocating.
class ShapeMemo {
public:
    // The pattern stored for exactly this shape, or empty. The hash only finds candidates; the
    // whole key is compared, so a different shape never gets a pattern that does not fit it.
    std::span<const Triangle> find(const ShapeKey& key) const;
    void store(const ShapeKey& key, std::span<const Triangle> pattern);

private:
    struct Entry {
        uint64_t hash;
        int32_t loopBegin;
        int32_t loopCount;
        int32_t offsetBegin;
        int32_t offsetCount;
        int32_t patternBegin;
        int32_t patternCount;
    };

    bool matches(const Entry& entry, const ShapeKey& key) const;
    void grow();

    std::vector<Entry> entries_;
    std::vector<int32_t> loopSizes_;
    std::vector<Vector3> offsets_;
    std::vector<Triangle> patterns_;
    // Open addressing over entries_: a slot holds an entry's index plus one, or 0 when free.
    std::vector<int32_t> slots_;
};

} // namespace oz::mesh
