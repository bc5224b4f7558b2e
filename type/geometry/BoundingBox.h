#pragma once

#include "geometry/Contour.h"

#include <algorithm>
#include <limits>

namespace type {

// Axis-aligned rectangle in the text plane. A default box is empty: it holds
// no point, and growing it by the first point makes it that point.
struct BoundingBox {
    Point2 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Point2 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    static BoundingBox of(const Contour& contour) {
        BoundingBox box;
        for (const Point2& p : contour)
            box.extend(p);
        return box;
    }

    bool empty() const { return !(min.x <= max.x && min.y <= max.y); }

    void extend(const Point2& p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }

    void extend(const BoundingBox& other) {
        if (other.empty())
            return;
        extend(other.min);
        extend(other.max);
    }

    // Inclusive of the border: a point on an edge of the box is inside.
    bool contains(const Point2& p) const {
        return p.x >= min.x && p.x <= max.x && p.y >= min.y && p.y <= max.y;
    }

    Point2 centre() const { return {(min.x + max.x) * 0.5, (min.y + max.y) * 0.5}; }

    friend bool operator==(const BoundingBox&, const BoundingBox&) = default;
};

} // namespace type
