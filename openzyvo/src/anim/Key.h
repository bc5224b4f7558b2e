#pragma once

#include "anim/TangentType.h"

namespace oz::anim {

// One side of a key. The angle (radians, in the plane of seconds and value)
// gives the slope of a fixed tangent. The weight scales how far the tangent
// reaches into its segment, 1 being the usual third of the segment; only
// weighted curves use it, so a weight keeps its meaning whatever the spacing
// of the keys.
struct Tangent {
    TangentType type = TangentType::kAuto;
    double angle = 0.0;
    double weight = 1.0;

    friend bool operator==(const Tangent&, const Tangent&) = default;
};

// A key of a curve. Times are in seconds and values in the curve's internal
// unit (centimetres, radians, plain numbers, or seconds for time curves).
struct Key {
    double time = 0.0;
    double value = 0.0;
    Tangent in;
    Tangent out;

    friend bool operator==(const Key&, const Key&) = default;
};

} // namespace oz::anim
