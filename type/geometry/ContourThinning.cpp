#include "geometry/ContourThinning.h"

#include <cmath>
#include <numbers>

namespace type {
namespace {

// A zero-length direction (a repeated point) stays zero, so the point shows
// no turn and counts as straight.
Point2 direction(const Point2& from, const Point2& to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0.0)
        return {};
    return {dx / length, dy / length};
}

bool isColinear(const Point2& a, const Point2& b, const Point2& c, double angleRadians) {
    const Point2 u = direction(a, b);
    const Point2 v = direction(b, c);
    const double sine = std::abs(u.y * v.x - u.x * v.y);
    return angleRadians > sine;
}

} // namespace

void thinContour(Contour& contour, const ThinningSettings& settings) {
    const double angleRadians = settings.colinearAngle * std::numbers::pi / 180.0;
    // The window a-b-c wraps around, so the walk runs two past the end and
    // sees the joins across the closing edge too.
    std::size_t i = 2;
    while (i < contour.size() + 2) {
        const std::size_t n = contour.size();
        const Point2& a = contour[(i - 2) % n];
        const Point2& b = contour[(i - 1) % n];
        const Point2& c = contour[i % n];

        const bool straight = settings.removeColinear && isColinear(a, b, c, angleRadians);
        const bool tooClose =
            settings.enableDistanceFilter && settings.pointDistanceFilter > std::hypot(b.x - a.x, b.y - a.y);
        if (!straight && !tooClose) {
            ++i;
            continue;
        }
        if (n < 4)
            return;
        // The next point slides into b's place and is tested with the same i.
        contour.erase(contour.begin() + static_cast<std::ptrdiff_t>((i - 1) % n));
    }
}

} // namespace type
