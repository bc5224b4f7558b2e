#pragma once

#include "mesh/Mesh.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <ostream>
#include <span>
#include <vector>

namespace oz::mesh {

inline void PrintTo(const Vec3& v, std::ostream* os) {
    *os << "(" << v.x << ", " << v.y << ", " << v.z << ")";
}

} // namespace oz::mesh

namespace oz::mesh::test {

// Axis-aligned square in the z = 0 plane, counter-clockwise seen from +z.
inline std::vector<Point3> square(double x0, double y0, double size) {
    return {{x0, y0, 0}, {x0 + size, y0, 0}, {x0 + size, y0 + size, 0}, {x0, y0 + size, 0}};
}

// Regular polygon in the z = 0 plane; clockwise when `clockwise` (the usual winding of a hole).
inline std::vector<Point3> circle(double cx, double cy, double radius, int segments, bool clockwise = false) {
    std::vector<Point3> points;
    for (int i = 0; i < segments; ++i) {
        const double a = 2.0 * std::numbers::pi * i / segments * (clockwise ? -1.0 : 1.0);
        points.push_back({cx + radius * std::cos(a), cy + radius * std::sin(a), 0});
    }
    return points;
}

inline std::vector<Point3> reversed(std::vector<Point3> loop) {
    return {loop.rbegin(), loop.rend()};
}

// Shoelace area of a loop projected on z = 0 (positive when counter-clockwise).
inline double signedArea(std::span<const Point3> loop) {
    double area = 0.0;
    for (size_t i = 0; i < loop.size(); ++i) {
        const Point3 a = loop[i];
        const Point3 b = loop[(i + 1) % loop.size()];
        area += a.x * b.y - b.x * a.y;
    }
    return 0.5 * area;
}

// Crossing-number test on z = 0.
inline bool inside(Point3 p, std::span<const Point3> loop) {
    bool in = false;
    for (size_t i = 0, j = loop.size() - 1; i < loop.size(); j = i++) {
        const Point3 a = loop[i];
        const Point3 b = loop[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            in = !in;
    }
    return in;
}

inline std::vector<Point3> concat(std::initializer_list<std::vector<Point3>> loops) {
    std::vector<Point3> all;
    for (const auto& loop : loops)
        all.insert(all.end(), loop.begin(), loop.end());
    return all;
}

inline std::vector<Point3> loopPoints(const Mesh& mesh, int32_t face, int32_t loop) {
    std::vector<Point3> points;
    for (const int32_t v : mesh.faces().loop(face, loop))
        points.push_back(mesh.points()[v]);
    return points;
}

// Unit cube, faces wound outward.
inline Mesh cube(Point3 offset = {}) {
    std::vector<Point3> points;
    for (int i = 0; i < 8; ++i)
        points.push_back(offset + Point3{double(i & 1), double((i >> 1) & 1), double((i >> 2) & 1)});
    const std::vector<int32_t> connects{0, 2, 3, 1, 4, 5, 7, 6, 0, 1, 5, 4,
                                        2, 6, 7, 3, 0, 4, 6, 2, 1, 3, 7, 5};
    Mesh mesh;
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>(6, 4), connects), Status::Success);
    return mesh;
}

// Builds one face from loops, failing the calling test on a bad status.
inline int32_t addFace(Mesh& mesh, std::initializer_list<std::vector<Point3>> loops, bool merge = false,
                       double tolerance = 1e-10) {
    std::vector<int32_t> counts;
    for (const auto& loop : loops)
        counts.push_back(static_cast<int32_t>(loop.size()));
    int32_t face = -1;
    EXPECT_EQ(mesh.addPolygon(concat(loops), counts, merge, tolerance, face), Status::Success);
    return face;
}

} // namespace oz::mesh::test
