#include "TriangleCrossing.h"

#include <gtest/gtest.h>

namespace type::testing {
namespace {

// A right triangle in the z = 0 plane.
const Triangle3 kFloor{{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}};

bool crossEitherWay(const Triangle3& a, const Triangle3& b) {
    const bool forward = trianglesCross(a, b);
    EXPECT_EQ(forward, trianglesCross(b, a));
    return forward;
}

TEST(TriangleCrossing, TrianglePassingThroughAnotherCrosses) {
    EXPECT_TRUE(crossEitherWay(kFloor, {{{1, 1, -1}, {1, 1, 1}, {3, -1, 0.5}}}));
    // Two triangles sharing a vertex can still pass through each other.
    EXPECT_TRUE(crossEitherWay(kFloor, {{{0, 0, 0}, {2, 1, 1}, {1, 2, -1}}}));
    // Float-sized coordinates far from the origin.
    const Triangle3 far{{{1000, 1000, 0}, {1000.004, 1000, 0}, {1000, 1000.004, 0}}};
    EXPECT_TRUE(crossEitherWay(
        far, {{{1000.001, 1000.001, -0.001}, {1000.001, 1000.001, 0.001}, {1000.003, 999.999, 0.0005}}}));
}

TEST(TriangleCrossing, TouchingIsNotCrossing) {
    // A vertex resting on the inside.
    EXPECT_FALSE(crossEitherWay(kFloor, {{{1, 1, 0}, {1, 1, 2}, {2, 2, 2}}}));
    // An edge lying on the inside, the triangle standing up from it.
    EXPECT_FALSE(crossEitherWay(kFloor, {{{1, 1, 0}, {2, 1, 0}, {1, 1, 3}}}));
    // Edge to edge, at right angles.
    EXPECT_FALSE(crossEitherWay(kFloor, {{{2, -1, 0}, {2, 1, 0}, {2, 0, 3}}}));
}

TEST(TriangleCrossing, SharedEdgeIsNotCrossingAtAnyAngle) {
    for (const double z : {-3.0, -0.01, 0.01, 3.0})
        EXPECT_FALSE(crossEitherWay(kFloor, {{{4, 0, 0}, {0, 4, 0}, {1, 1, z}}}));
}

TEST(TriangleCrossing, CoplanarTrianglesNeverCross) {
    EXPECT_FALSE(crossEitherWay(kFloor, {{{1, 1, 0}, {5, 1, 0}, {1, 5, 0}}}));
    EXPECT_FALSE(crossEitherWay(kFloor, kFloor));
}

TEST(TriangleCrossing, DisjointOrDegenerateTrianglesDoNotCross) {
    EXPECT_FALSE(crossEitherWay(kFloor, {{{1, 1, 1}, {2, 1, 2}, {1, 2, 3}}}));
    // The planes meet inside the floor, but the other triangle stops short of it.
    EXPECT_FALSE(crossEitherWay(kFloor, {{{5, 5, -1}, {5, 5, 1}, {6, 6, 0}}}));
    // A zero-area triangle lying across the floor.
    EXPECT_FALSE(crossEitherWay(kFloor, {{{1, 1, -1}, {1, 1, 1}, {1, 1, 0}}}));
}

} // namespace
} // namespace type::testing
