#include "geometry/Orientation.h"

namespace type {

double signedArea(const Contour& contour) {
    double sum = 0.0;
    const std::size_t n = contour.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Point2& p = contour[i];
        const Point2& q = contour[(i + 1) % n];
        sum += p.x * q.y - q.x * p.y;
    }
    return sum * 0.5;
}

bool isCounterClockwise(const Contour& contour) {
    return !(signedArea(contour) < 0.0);
}

} // namespace type
