#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace oz::mesh {

// a - b into `difference`; true when it is exact, which is when no bits of it were rounded away.
bool exactDifference(double a, double b, double& difference);

// A hash of a face's loop sizes: faces of one outline, however drawn, share it.
uint64_t loopSizesHash(const FaceLoops& faces, int32_t face);

// A hash of a face's shape up to translation: its loop sizes and a sample of its points relative
// to the first one. Equal shapes hash alike; equal hashes only name candidates.
uint64_t shapeHash(const FaceLoops& faces, std::span<const Point3> points, int32_t face);

// Whether every point of `face` lies at an offset from its first point that is an exact
// difference of their coordinates.
bool offsetsExact(const FaceLoops& faces, std::span<const Point3> points, int32_t face);

// Whether face `b` has the loop sizes of face `a` and, point for point, the same offsets from its
// first point, each an exact difference in `b`. When `a`'s offsets are exact too, `b` is an exact
// translate of `a`: every turn of every triangle is the same in both, and one cut fits both.
bool sameOffsets(const FaceLoops& faces, std::span<const Point3> points, int32_t a, int32_t b);

// Writes a pattern of point indices within a face, whose vertex ids are `ids`, as vertex ids.
void writePattern(std::span<const int32_t> ids, std::span<const Triangle> pattern, Triangle* out);

// Triangle patterns (point indices within the face) of the faces cut so far in one pass over a
// mesh. Repeated letters of a text are translated copies of one outline: each is cut once. An
// entry names the face it was cut from instead of copying its shape, so that a pass over
// thousands of distinct faces pays little more than a hash for each. Patterns live in one flat
// array. Entries belong to the block of faces that stored or last took them: a face finds any
// entry of its own block, but an entry of another block only when its pattern is the one cutting
// afresh makes, so that what a face gets never depends on which blocks came before.
class ShapeMemo {
public:
    // Where a stored pattern lies among the memo's triangles.
    struct Pattern {
        int32_t begin = 0;
        int32_t count = 0;
    };
    // How a stored pattern was made: cut afresh by ear clipping or by the sweep, or taken from a
    // face alike.
    enum class Origin : uint8_t { Clipped, Swept, Alike };
    struct Found {
        Pattern pattern;
        Origin origin;
        bool ownBlock; // stored or taken in the current block
        int32_t entry;
    };

    // Faces are found and stored for `block` from now on.
    void startBlock(int32_t block) { block_ = block; }
    // The pattern stored for a face of exactly this shape, if any: one of the current block
    // first, else one cut afresh. The hash only finds candidates; their shapes are compared in
    // full, so a different shape never gets a pattern that does not fit it.
    std::optional<Found> find(const FaceLoops& faces, std::span<const Point3> points, int32_t face,
                              uint64_t hash);
    Pattern store(int32_t face, uint64_t hash, std::span<const Triangle> pattern, Origin origin);
    // Makes an entry found in another block one of the current block.
    void take(const Found& found) { entries_[static_cast<size_t>(found.entry)].block = block_; }
    // Valid until the next store.
    std::span<const Triangle> triangles(Pattern pattern) const {
        return std::span<const Triangle>(patterns_).subspan(static_cast<size_t>(pattern.begin),
                                                            static_cast<size_t>(pattern.count));
    }

private:
    struct Entry {
        uint64_t hash;
        int32_t face;
        Pattern pattern;
        // Whether the face's offsets are exact: worked out when a candidate first meets the entry,
        // so that faces no other face resembles never pay for it.
        enum class Exact : int8_t { Unknown, Yes, No } exact = Exact::Unknown;
        Origin origin;
        int32_t block;
    };

    bool exact(Entry& entry, const FaceLoops& faces, std::span<const Point3> points);

    void grow();

    std::vector<Entry> entries_;
    int32_t block_ = 0;
    std::vector<Triangle> patterns_;
    // Open addressing over entries_: a slot holds a tag of its entry's hash and the entry's index
    // plus one, or 0 when free.
    std::vector<uint64_t> slots_;
};

} // namespace oz::mesh
