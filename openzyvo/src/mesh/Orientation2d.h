#pragma once

#include <cmath>

namespace oz::mesh {

struct Point2 {
    double x = 0.0;
    double y = 0.0;

    friend constexpr bool operator==(Point2 a, Point2 b) = default;
};

// The sign of the turn a -> b -> c worked out exactly, for when the rounded value is too close to
// zero to tell.
int exactOrientation(Point2 a, Point2 b, Point2 c);

// The exact sign of the turn a -> b -> c: 1 counter-clockwise, -1 clockwise, 0 collinear. Exact for
// every finite input whose products neither overflow nor underflow: the planar triangulator's
// decisions (convex or not, inside or not, crossing or not) must never disagree with each other.
// The rounded determinant decides whenever it is further from zero than its error bound
// (Shewchuk's first stage), which is almost always; it is inline for that reason.
inline int orientation(Point2 a, Point2 b, Point2 c) {
    constexpr double kFilterBound = 3.3306690738754716e-16;
    const double left = (b.x - a.x) * (c.y - a.y);
    const double right = (b.y - a.y) * (c.x - a.x);
    const double det = left - right;
    // Terms of opposite signs cannot cancel, so the bound over both magnitudes is never too tight;
    // the sign is formed without a branch, as turns go either way about equally often.
    const double bound = kFilterBound * (std::abs(left) + std::abs(right));
    const int sign = static_cast<int>(det > bound) - static_cast<int>(det < -bound);
    if (sign != 0 || bound == 0.0) [[likely]]
        return sign;
    return exactOrientation(a, b, c);
}

// Whether the closed segments a-b and c-d share a point (exact).
bool segmentsTouch(Point2 a, Point2 b, Point2 c, Point2 d);

// Whether p lies in the bounding box of a and b (on the segment when the three are collinear).
inline bool withinBox(Point2 a, Point2 b, Point2 p) {
    return (a.x < b.x ? a.x <= p.x && p.x <= b.x : b.x <= p.x && p.x <= a.x) &&
           (a.y < b.y ? a.y <= p.y && p.y <= b.y : b.y <= p.y && p.y <= a.y);
}

} // namespace oz::mesh
