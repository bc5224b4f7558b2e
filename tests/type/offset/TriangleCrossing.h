#pragma once

#include <array>
#include <vector>

namespace type::testing {

struct Point3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

using Triangle3 = std::array<Point3, 3>;

// Whether two triangles pass through each other: some stretch of their
// intersection lies inside both. Shared vertices and edges, a vertex or an
// edge resting on the other triangle, and coplanar triangles (however they
// overlap) do not count: a solid whose bevel narrowed to a stroke's middle
// has walls standing on the same line from both sides, and that is a
// collapse, not a fold. A fold always shows as two triangles passing through
// each other. Zero-area triangles never cross. Distances below a millionth
// of the pair's size count as zero, which is what float data can resolve.
bool trianglesCross(const Triangle3& a, const Triangle3& b);

// How many pairs of `triangles` cross, found by sweeping their boxes along x.
int crossings(const std::vector<Triangle3>& triangles);

} // namespace type::testing
