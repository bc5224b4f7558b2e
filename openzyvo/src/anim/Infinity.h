#pragma once

#include <cstdint>

namespace oz::anim {

// How a curve continues before its first key and after its last. The values
// are those of ZFnAnimCurve::InfinityType and of the saved attributes.
enum class Infinity : std::uint8_t {
    kConstant = 0,  // the end key's value
    kLinear,        // a straight line along the end key's outer tangent
    kCycle,         // the keyed range repeats
    kCycleRelative, // the keyed range repeats, each cycle offset by the range's change in value
    kOscillate,     // the keyed range repeats, every other cycle mirrored in time
};

constexpr int kInfinityCount = 5;

} // namespace oz::anim
