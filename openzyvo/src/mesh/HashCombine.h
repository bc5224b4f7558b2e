#pragma once

#include <cstdint>

namespace oz::mesh {

// Folds `value` into `hash`, so that the order of the values counts: keys of shapes built from
// their sizes and coordinates.
inline uint64_t hashCombine(uint64_t hash, uint64_t value) {
    return hash ^ (value + 0x9e3779b97f4a7c15ULL + (hash << 6) + (hash >> 2));
}

} // namespace oz::mesh
