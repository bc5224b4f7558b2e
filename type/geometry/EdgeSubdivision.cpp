#include "geometry/EdgeSubdivision.h"

#include <algorithm>
#include <cmath>

namespace type {

Contour subdivideEdges(const Contour& contour, const EdgeSubdivisionSettings& settings) {
    if (contour.empty())
        return {};
    Contour result;
    const std::size_t n = contour.size();
    for (std::size_t k = 0; k < n; ++k) {
        const Point2& from = contour[k];
        const Point2& to = contour[(k + 1) % n];
        result.push_back(from);
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (!(length > settings.maxEdgeLength))
            continue;
        // Clamped while still floating point: a zero or tiny maximum length
        // makes the quotient huge or infinite, which no integer can hold.
        const double segments =
            std::min(std::trunc(length / settings.maxEdgeLength), static_cast<double>(settings.maxDivisions));
        if (!(segments > 1.0))
            continue;
        const auto m = static_cast<std::int32_t>(segments);
        for (std::int32_t j = 1; j < m; ++j) {
            result.push_back({from.x + (to.x - from.x) * j / m, from.y + (to.y - from.y) * j / m});
        }
    }
    return result;
}

} // namespace type
