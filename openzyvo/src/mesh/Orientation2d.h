#pragma once

namespace oz::mesh {

struct Point2 {
    double x = 0.0;
    double y = 0.0;

    friend constexpr bool operator==(Point2 a, Point2 b) = default;
};

// The exact sign of the turn a -> b -> c: 1 counter-clockwise, -1 clockwise, 0 collinear. Exact for
// every finite input whose products neither overflow nor underflow: the planar triangulator's
// decisions (convex or not, inside or not, crossing or not) must never disagree with each other.
int orientation(Point2 a, Point2 b, Point2 c);

// Whether the closed segments a-b and c-d share a point (exact).
bool segmentsTouch(Point2 a, Point2 b, Point2 c, Point2 d);

// Whether p lies in the bounding box of a and b (on the segment when the three are collinear).
inline bool withinBox(Point2 a, Point2 b, Point2 p) {
    return (a.x < b.x ? a.x <= p.x && p.x <= b.x : b.x <= p.x && p.x <= a.x) &&
           (a.y < b.y ? a.y <= p.y && p.y <= b.y : b.y <= p.y && p.y <= a.y);
}

// The same turn in plain floating point; its sign is only trustworthy away from zero.
inline double orientationValue(Point2 a, Point2 b, Point2 c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

} // namespace oz::mesh
