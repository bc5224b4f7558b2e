#pragma once

#include "anim/Key.h"

#include <cstddef>
#include <span>

namespace oz::anim {

// Slopes, in value per second, of both sides of a key.
struct Slopes {
    double in = 0.0;
    double out = 0.0;
};

// Resolves the tangent types of keys[index] against its neighbours. Keys must
// be sorted by strictly increasing time.
Slopes tangentSlopes(std::span<const Key> keys, std::size_t index);

} // namespace oz::anim
