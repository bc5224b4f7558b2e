#include "anim/TangentSlopes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace oz::anim {
namespace {

// A fixed tangent cannot point backwards in time; near-vertical angles are
// held just short of vertical so the slope stays finite.
constexpr double kMaxAngle = std::numbers::pi / 2.0 - 1e-6;

bool sameValue(double a, double b) {
    return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)});
}

// The key and what it needs to know of its neighbours.
struct Neighbourhood {
    const Key& key;
    const Key* prev;
    const Key* next;

    double prevSecant() const { return (key.value - prev->value) / (key.time - prev->time); }
    double nextSecant() const { return (next->value - key.value) / (next->time - key.time); }

    double linear(bool inSide) const {
        if (prev && (inSide || !next))
            return prevSecant();
        if (next)
            return nextSecant();
        return 0.0;
    }

    double spline() const {
        if (prev && next)
            return (next->value - prev->value) / (next->time - prev->time);
        return linear(true);
    }

    double clamped() const {
        if ((prev && sameValue(key.value, prev->value)) || (next && sameValue(key.value, next->value)))
            return 0.0;
        return spline();
    }

    // Interior keys that are not extremes; the others are flat.
    bool monotoneInterior() const { return prev && next && prevSecant() * nextSecant() > 0.0; }

    // Three times the smaller secant keeps both neighbouring cubic segments
    // within their keys' values.
    double plateau() const {
        if (!monotoneInterior())
            return 0.0;
        const double limit = 3.0 * std::min(std::abs(prevSecant()), std::abs(nextSecant()));
        return std::clamp(spline(), -limit, limit);
    }

    // Weighted harmonic mean of the two secants (monotone by construction).
    double automatic() const {
        if (!monotoneInterior())
            return 0.0;
        const double h0 = key.time - prev->time, h1 = next->time - key.time;
        const double w0 = 2.0 * h1 + h0, w1 = h1 + 2.0 * h0;
        return (w0 + w1) / (w0 / prevSecant() + w1 / nextSecant());
    }

    double slope(const Tangent& tangent, bool inSide) const {
        switch (tangent.type) {
        case TangentType::kFixed:
            return std::tan(std::clamp(tangent.angle, -kMaxAngle, kMaxAngle));
        case TangentType::kLinear:
            return linear(inSide);
        case TangentType::kSpline:
            return spline();
        case TangentType::kClamped:
            return clamped();
        case TangentType::kPlateau:
            return plateau();
        case TangentType::kAuto:
            return automatic();
        case TangentType::kFlat:
        case TangentType::kStep:
        case TangentType::kStepNext:
            break;
        }
        return 0.0;
    }
};

} // namespace

Slopes tangentSlopes(std::span<const Key> keys, std::size_t index) {
    const Neighbourhood around{keys[index], index > 0 ? &keys[index - 1] : nullptr,
                               index + 1 < keys.size() ? &keys[index + 1] : nullptr};
    return {around.slope(keys[index].in, true), around.slope(keys[index].out, false)};
}

} // namespace oz::anim
