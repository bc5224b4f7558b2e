#pragma once

#include "mesh/Vec3.h"

#include <algorithm>
#include <limits>

namespace oz::mesh {

// Axis-aligned box; a default box is empty and grows with every point added.
struct BoundingBox {
    Point3 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
               std::numeric_limits<double>::infinity()};
    Point3 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
               -std::numeric_limits<double>::infinity()};

    bool empty() const { return min.x > max.x || min.y > max.y || min.z > max.z; }

    void expand(Point3 p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    }
};

} // namespace oz::mesh
