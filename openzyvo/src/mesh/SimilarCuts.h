#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/PlanarFace.h"
#include "mesh/Triangle.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace oz::mesh {

// Whether `cut`, made by ear clipping another face with the loop sizes of `face`, fits `face` as
// well. `face` must be well-formed (see loopsWellFormed) and keep every point when laid flat. The
// cut fits when it has as many triangles as a cut of all of `face`'s points (so the other face
// kept every point too), runs round each loop the way `face` needs (holes clockwise), and every
// triangle turns strictly counter-clockwise in `face`'s plane. Its edges that are not loop edges
// then pair off, so how often its triangles cover a point adds up to the winding number of the
// loops there: one inside the face, zero outside and in holes. With no triangle turned over or
// flat, that count is how many triangles hold the point, so the triangles tile the face exactly.
bool cutFits(const PlanarFace& face, std::span<const Triangle> cut);

// The last cut kept of faces with each list of loop sizes, in the current block of faces. A letter
// scaled, moved by an offset that is not exact, or drawn slightly otherwise keeps its loop sizes,
// and most often the cut of one still fits the next (see cutFits), which is proven for a fraction
// of the price of cutting it afresh. Cuts are point indices within a face. Keep one per thread.
class SimilarCuts {
public:
    // Forgets the cuts of the block before.
    void startBlock() { ++block_; }
    // The cut kept for faces with the loop sizes of `face`, if any; whether it fits is still to
    // be proven.
    std::span<const Triangle> candidate(const FaceLoops& faces, int32_t face) const;
    // Keeps `cut`, a cut of `face` made by ear clipping, in place of the one kept before.
    void keep(const FaceLoops& faces, int32_t face, std::span<const Triangle> cut);

private:
    struct Entry {
        std::vector<int32_t> loopSizes;
        int32_t block = -1;
        std::vector<Triangle> cut;
    };

    static bool sameSizes(const Entry& entry, const FaceLoops& faces, int32_t face);

    std::unordered_map<uint64_t, Entry> entries_;
    int32_t block_ = 0;
};

} // namespace oz::mesh
