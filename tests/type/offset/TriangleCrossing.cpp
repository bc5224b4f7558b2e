#include "TriangleCrossing.h"

#include <algorithm>
#include <cmath>

namespace type::testing {

namespace {

constexpr double kTolerance = 1e-6;

Point3 minus(const Point3& a, const Point3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Point3 cross(const Point3& a, const Point3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const Point3& a, const Point3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double length(const Point3& a) {
    return std::sqrt(dot(a, a));
}

double size(const Triangle3& t) {
    return std::max({length(minus(t[1], t[0])), length(minus(t[2], t[1])), length(minus(t[0], t[2]))});
}

Point3 normal(const Triangle3& t) {
    return cross(minus(t[1], t[0]), minus(t[2], t[0]));
}

// Signed distances of t's vertices from the plane of `other`, with those
// within `tolerance` of it set to zero.
std::array<double, 3> sides(const Triangle3& t, const Triangle3& other, double tolerance) {
    const Point3 n = normal(other);
    const double scale = length(n);
    std::array<double, 3> d{};
    for (int i = 0; i < 3; ++i) {
        d[i] = dot(n, minus(t[i], other[0])) / scale;
        if (std::abs(d[i]) <= tolerance)
            d[i] = 0.0;
    }
    return d;
}

// The stretch where a triangle meets the other's plane, when that stretch
// runs through the triangle's inside, as parameters along `direction`.
bool stretch(const Triangle3& t, const std::array<double, 3>& d, const Point3& direction, double& low,
             double& high) {
    const int zeros = (d[0] == 0.0) + (d[1] == 0.0) + (d[2] == 0.0);
    const bool positive = d[0] > 0.0 || d[1] > 0.0 || d[2] > 0.0;
    const bool negative = d[0] < 0.0 || d[1] < 0.0 || d[2] < 0.0;
    // All on one side, or only touching the plane with a vertex or an edge.
    if (!(positive && negative) || zeros >= 2)
        return false;
    low = INFINITY;
    high = -INFINITY;
    const auto take = [&](const Point3& p) {
        const double s = dot(direction, p);
        low = std::min(low, s);
        high = std::max(high, s);
    };
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        if (d[i] == 0.0)
            take(t[i]);
        if ((d[i] < 0.0 && d[j] > 0.0) || (d[i] > 0.0 && d[j] < 0.0)) {
            const double f = d[i] / (d[i] - d[j]);
            take({t[i].x + (t[j].x - t[i].x) * f, t[i].y + (t[j].y - t[i].y) * f,
                  t[i].z + (t[j].z - t[i].z) * f});
        }
    }
    return true;
}

} // namespace

bool trianglesCross(const Triangle3& a, const Triangle3& b) {
    const double scale = std::max(size(a), size(b));
    const double tolerance = kTolerance * scale;
    const Point3 na = normal(a), nb = normal(b);
    if (length(na) <= tolerance * size(a) || length(nb) <= tolerance * size(b))
        return false;
    const std::array<double, 3> da = sides(a, b, tolerance);
    const std::array<double, 3> db = sides(b, a, tolerance);
    Point3 direction = cross(na, nb);
    const double directionLength = length(direction);
    if (directionLength == 0.0)
        return false;
    direction = {direction.x / directionLength, direction.y / directionLength, direction.z / directionLength};
    double lowA = 0.0, highA = 0.0, lowB = 0.0, highB = 0.0;
    if (!stretch(a, da, direction, lowA, highA) || !stretch(b, db, direction, lowB, highB))
        return false;
    return std::min(highA, highB) - std::max(lowA, lowB) > tolerance;
}

int crossings(const std::vector<Triangle3>& triangles) {
    struct Box {
        double min[3];
        double max[3];
    };
    std::vector<Box> boxes(triangles.size());
    std::vector<int> order(triangles.size());
    for (std::size_t t = 0; t < triangles.size(); ++t) {
        for (int axis = 0; axis < 3; ++axis) {
            const auto coordinate = [axis](const Point3& p) {
                return axis == 0 ? p.x : axis == 1 ? p.y : p.z;
            };
            boxes[t].min[axis] = std::min(
                {coordinate(triangles[t][0]), coordinate(triangles[t][1]), coordinate(triangles[t][2])});
            boxes[t].max[axis] = std::max(
                {coordinate(triangles[t][0]), coordinate(triangles[t][1]), coordinate(triangles[t][2])});
        }
        order[t] = static_cast<int>(t);
    }
    std::sort(order.begin(), order.end(), [&](int a, int b) { return boxes[a].min[0] < boxes[b].min[0]; });
    int found = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Box& a = boxes[order[i]];
        for (std::size_t j = i + 1; j < order.size() && boxes[order[j]].min[0] <= a.max[0]; ++j) {
            const Box& b = boxes[order[j]];
            if (b.min[1] > a.max[1] || b.max[1] < a.min[1] || b.min[2] > a.max[2] || b.max[2] < a.min[2])
                continue;
            found += trianglesCross(triangles[order[i]], triangles[order[j]]);
        }
    }
    return found;
}

} // namespace type::testing
