#pragma once

#include "mesh/PlanarFace.h"
#include "mesh/Triangle.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace oz::mesh {

// Whether `cut`, a cut made for a face with the same loops as `face` (point for point, holes
// running the same way round), fits `face` as well: exactly when every triangle turns strictly
// counter-clockwise in `face`'s plane. `face` must be well-formed (see loopsWellFormed). The cut's
// edges that are not loop edges pair off, so how often its triangles cover a point adds up to the
// winding number of the loops there: one inside the face, zero outside and in holes. With no
// triangle turned over or flat, that count is how many triangles hold the point, so the triangles
// tile the face exactly.
bool cutFits(const PlanarFace& face, std::span<const Triangle> cut);

// Cuts of well-formed faces kept by the faces' loop sizes, the way each hole runs round and which
// corners are reflex. A letter scaled, moved by an offset that is not exact, or drawn slightly
// otherwise keeps all three, and most often its last cut still fits (see cutFits), which is
// proven for a fraction of the price of cutting it afresh. Cuts are point indices within a face
// laid flat. Keep one per thread.
class SimilarCuts {
public:
    // The cut kept for faces like `face`, if there is one and it fits `face`.
    std::span<const Triangle> find(const PlanarFace& face);
    // Keeps `cut` of `face` for the faces like it that follow, in place of the cut kept before.
    void keep(const PlanarFace& face, std::span<const Triangle> cut);

private:
    struct Entry {
        std::vector<int32_t> loopStart;
        std::vector<bool> reversed; // per loop, whether it runs counter-clockwise as a hole
        std::vector<Triangle> cut;
    };

    static bool sameLoops(const Entry& entry, const PlanarFace& face);

    std::unordered_map<uint64_t, Entry> entries_;
};

} // namespace oz::mesh
