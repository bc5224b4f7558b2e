#pragma once

#include <cstdint>

namespace oz::anim {

// How a key's tangent on one side is derived. The values are those of
// ZFnAnimCurve::TangentType and of the saved key tangent arrays.
enum class TangentType : std::uint8_t {
    kFixed = 0, // slope from the stored angle (and, on weighted curves, the weight)
    kLinear,    // slope of the straight line to the neighbouring key on that side
    kFlat,      // slope 0
    kStep,      // out side: hold the key's value until the next key
    kStepNext,  // out side: jump to the next key's value right after the key
    kSpline,    // slope of the line between the two neighbours (smooth)
    kClamped,   // as spline, but flat when a neighbour holds the same value
    kPlateau,   // as spline, limited so no segment overshoots; flat at extremes and ends
    kAuto,      // harmonic mean of the neighbouring slopes, never overshooting; flat at extremes and ends
};

constexpr int kTangentTypeCount = 9;

constexpr bool isStep(TangentType type) {
    return type == TangentType::kStep || type == TangentType::kStepNext;
}

} // namespace oz::anim
