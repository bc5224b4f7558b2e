#pragma once

#include <vector>

namespace type {

struct Point2 {
    double x = 0.0;
    double y = 0.0;
    friend bool operator==(const Point2&, const Point2&) = default;
};

// An outline in the text plane. It is implicitly closed: the last point joins
// the first and the first point is never repeated at the end.
using Contour = std::vector<Point2>;

// One outer boundary with the holes cut into it; becomes one mesh face.
struct Shape {
    Contour outer;
    std::vector<Contour> holes;
};

} // namespace type
