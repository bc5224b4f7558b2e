#pragma once

#include "geometry/Contour.h"

#include <cstdint>
#include <vector>

namespace type {

// Even-odd crossing test. Points exactly on an edge fall inside or outside as
// the strict comparisons of the crossing rule decide; callers rely on that
// being stable, not on it being symmetric.
bool containsEvenOdd(const Contour& polygon, const Point2& point);

// For every contour, the number of other contours of the same character that
// contain both its leftmost and its rightmost point. Odd depth marks a hole,
// even depth an outer boundary. An empty contour has depth 0 and contains
// nothing.
std::vector<std::int32_t> nestingDepths(const std::vector<Contour>& contours);

inline bool isHoleDepth(std::int32_t depth) {
    return depth % 2 != 0;
}

} // namespace type
