#pragma once

#include "offset/DistanceFieldOffset.h"
#include "offset/FaceOutline.h"
#include "offset/Mitres.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace type {

// Distance fields kept from one build to the next by outline. A text change moves only the
// letters after it on its line; every other letter's outline reads as before, so its field is
// reused and only the letters the change brings or moves get new ones.
class DistanceFieldCache {
public:
    using Field = std::shared_ptr<const DistanceFieldOffset>;

    // The field of each outline (with its mitres) on a grid of `gridSize` cells a side: the one
    // kept from the last call when that call had the same grid size and an outline alike, else a
    // new one (the new ones are built in parallel). Afterwards exactly these fields are kept.
    std::vector<Field> fields(const std::vector<const FaceOutline*>& outlines,
                              const std::vector<std::vector<Mitre>>& mitres, int gridSize);

private:
    struct Kept {
        FaceOutline outline;
        Field field;
    };
    int m_gridSize = 0;
    std::unordered_multimap<uint64_t, Kept> m_kept;
};

} // namespace type
