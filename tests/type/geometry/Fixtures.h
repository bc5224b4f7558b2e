#pragma once

#include "geometry/Contour.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace type::testing {

inline Contour rectangle(double x0, double y0, double x1, double y1) {
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

// A regular polygon standing in for a flattened round glyph stroke.
inline Contour circle(Point2 centre, double radius, int points) {
    Contour contour;
    for (int i = 0; i < points; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / points;
        contour.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return contour;
}

inline Contour reversed(Contour contour) {
    std::reverse(contour.begin(), contour.end());
    return contour;
}

} // namespace type::testing
