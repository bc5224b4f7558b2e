#include "geometry/ParityNesting.h"

namespace type {
namespace {

struct Extremes {
    Point2 leftmost;
    Point2 rightmost;
};

// The first point wins a tie, so the choice is stable for vertical edges.
Extremes extremesOf(const Contour& contour) {
    Extremes extremes{contour.front(), contour.front()};
    for (const Point2& p : contour) {
        if (p.x < extremes.leftmost.x)
            extremes.leftmost = p;
        if (p.x > extremes.rightmost.x)
            extremes.rightmost = p;
    }
    return extremes;
}

} // namespace

bool containsEvenOdd(const Contour& polygon, const Point2& point) {
    bool inside = false;
    const std::size_t n = polygon.size();
    for (std::size_t j = 0, k = n - 1; j < n; k = j++) {
        const Point2& pj = polygon[j];
        const Point2& pk = polygon[k];
        if ((pj.y > point.y) != (pk.y > point.y) &&
            point.x < (point.y - pj.y) * (pk.x - pj.x) / (pk.y - pj.y) + pj.x)
            inside = !inside;
    }
    return inside;
}

std::vector<std::int32_t> nestingDepths(const std::vector<Contour>& contours) {
    std::vector<std::int32_t> depths(contours.size(), 0);
    for (std::size_t i = 0; i < contours.size(); ++i) {
        if (contours[i].empty())
            continue;
        const Extremes extremes = extremesOf(contours[i]);
        for (std::size_t j = 0; j < contours.size(); ++j) {
            if (j != i && containsEvenOdd(contours[j], extremes.leftmost) &&
                containsEvenOdd(contours[j], extremes.rightmost))
                ++depths[i];
        }
    }
    return depths;
}

} // namespace type
