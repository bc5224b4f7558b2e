#include "Fixtures.h"
#include "geometry/BoundingBox.h"
#include "geometry/EvenOddNesting.h"
#include "geometry/Orientation.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tbb/parallel_for.h>

namespace type {
namespace {

using testing::circle;
using testing::rectangle;
using testing::reversed;

double filledArea(const std::vector<Shape>& shapes) {
    double area = 0.0;
    for (const Shape& shape : shapes) {
        area += std::abs(signedArea(shape.outer));
        for (const Contour& hole : shape.holes)
            area -= std::abs(signedArea(hole));
    }
    return area;
}

// Every vertex of `actual` is a vertex of `expected`, and the counts agree.
void expectSameVertices(const Contour& actual, const Contour& expected, double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (const Point2& p : actual) {
        const bool found = std::any_of(expected.begin(), expected.end(), [&](const Point2& q) {
            return std::abs(p.x - q.x) <= tolerance && std::abs(p.y - q.y) <= tolerance;
        });
        EXPECT_TRUE(found) << "unexpected vertex (" << p.x << ", " << p.y << ")";
    }
}

TEST(EvenOddNesting, RingPairBecomesOneShapeWithSlightlySmallerHole) {
    const Contour outer = rectangle(0, 0, 10, 12);
    const Contour inner = rectangle(2, 3, 8, 9);

    const std::vector<Shape> shapes = nestEvenOdd({outer, inner});

    ASSERT_EQ(shapes.size(), 1u);
    ASSERT_EQ(shapes[0].holes.size(), 1u);
    expectSameVertices(shapes[0].outer, outer, 0.0);

    const BoundingBox hole = BoundingBox::of(shapes[0].holes[0]);
    EXPECT_NEAR(hole.centre().x, 5.0, 1e-12);
    EXPECT_NEAR(hole.centre().y, 6.0, 1e-12);
    EXPECT_NEAR(hole.max.x - hole.min.x, 6.0 * 0.995, 1e-12);
    EXPECT_NEAR(hole.max.y - hole.min.y, 6.0 * 0.995, 1e-12);
}

TEST(EvenOddNesting, WindingFollowsTheFirstOuterBoundary) {
    // The clipper hands outers back counter-clockwise, so a glyph comes out
    // clockwise with counter-clockwise holes whatever the font's winding was.
    for (const bool fontClockwise : {false, true}) {
        const Contour outer = circle({0, 0}, 10, 32);
        const Contour inner = circle({0, 0}, 5, 32);
        const std::vector<Shape> shapes =
            fontClockwise ? nestEvenOdd({reversed(outer), reversed(inner)}) : nestEvenOdd({outer, inner});
        ASSERT_EQ(shapes.size(), 1u);
        ASSERT_EQ(shapes[0].holes.size(), 1u);
        EXPECT_LT(signedArea(shapes[0].outer), 0.0);
        EXPECT_GT(signedArea(shapes[0].holes[0]), 0.0);
    }
}

TEST(EvenOddNesting, OverlappingStrokesLeaveTheirOverlapOpen) {
    const Contour a = rectangle(0, 0, 4, 4);
    const Contour b = rectangle(2, 2, 6, 6);

    const std::vector<Shape> shapes = nestEvenOdd({a, b});

    // Even-odd: each square once, minus the 2x2 overlap covered twice.
    EXPECT_NEAR(filledArea(shapes), 16.0 + 16.0 - 2.0 * 4.0, 1e-9);
}

TEST(EvenOddNesting, DisjointSubPathsStaySeparateShapes) {
    const std::vector<Shape> shapes = nestEvenOdd({rectangle(0, 0, 1, 1), rectangle(3, 0, 4, 1)});

    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_TRUE(shapes[0].holes.empty());
    EXPECT_TRUE(shapes[1].holes.empty());
    EXPECT_NEAR(filledArea(shapes), 2.0, 1e-12);
}

TEST(EvenOddNesting, GlyphWithTwoCountersKeepsBothHolesInOneShape) {
    // A "B": one outline with an upper and a lower counter.
    const std::vector<Shape> shapes =
        nestEvenOdd({rectangle(0, 0, 6, 10), rectangle(1, 1, 5, 4), rectangle(1, 6, 5, 9)});

    ASSERT_EQ(shapes.size(), 1u);
    ASSERT_EQ(shapes[0].holes.size(), 2u);
    const double holeArea = 12.0 * 0.995 * 0.995;
    EXPECT_NEAR(filledArea(shapes), 60.0 - 2.0 * holeArea, 1e-9);
}

TEST(EvenOddNesting, IslandInsideACounterIsItsOwnShape) {
    // Like a ring with a dot in its middle.
    const std::vector<Shape> shapes =
        nestEvenOdd({rectangle(0, 0, 10, 10), rectangle(2, 2, 8, 8), rectangle(4, 4, 6, 6)});

    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_EQ(shapes[0].holes.size(), 1u);
    EXPECT_TRUE(shapes[1].holes.empty());
    expectSameVertices(shapes[1].outer, rectangle(4, 4, 6, 6), 0.0);
}

TEST(EvenOddNesting, SinglePolygonComesBackUnchangedButReversed) {
    const Contour triangle{{0, 0}, {3, 0}, {0, 2}};

    const std::vector<Shape> shapes = nestEvenOdd({triangle});

    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_TRUE(shapes[0].holes.empty());
    expectSameVertices(shapes[0].outer, triangle, 0.0);
    EXPECT_LT(signedArea(shapes[0].outer), 0.0);
}

TEST(EvenOddNesting, CoordinatesSnapToAThousandthTowardZero) {
    const std::vector<Shape> shapes = nestEvenOdd({{{0.0019, -0.0019}, {5.0009, -0.0019}, {5.0009, 4.9999}}});

    ASSERT_EQ(shapes.size(), 1u);
    expectSameVertices(shapes[0].outer, {{0.001, -0.001}, {5.0, -0.001}, {5.0, 4.999}}, 1e-12);
}

TEST(EvenOddNesting, NothingToNestGivesNoShapes) {
    EXPECT_TRUE(nestEvenOdd({}).empty());
    EXPECT_TRUE(nestEvenOdd({{{0, 0}, {1, 1}}}).empty());
    EXPECT_TRUE(nestEvenOdd({{{0, 0}, {1, 1}, {2, 2}}}).empty());
}

TEST(EvenOddNesting, UnrepresentablePolygonsAreLeftOut) {
    const double nan = std::nan("");
    const std::vector<Shape> shapes =
        nestEvenOdd({{{0, 0}, {nan, 0}, {1, 1}}, {{0, 0}, {1e300, 0}, {1, 1}}, rectangle(0, 0, 1, 1)});

    ASSERT_EQ(shapes.size(), 1u);
    expectSameVertices(shapes[0].outer, rectangle(0, 0, 1, 1), 0.0);
}

TEST(EvenOddNesting, ConcurrentCallsAgreeWithASerialCall) {
    const std::vector<Contour> glyph{circle({0, 0}, 10, 48), circle({0, 0}, 6, 48),
                                     rectangle(-12, -1, 12, 1)};
    const std::vector<Shape> expected = nestEvenOdd(glyph);

    std::vector<std::vector<Shape>> results(64);
    tbb::parallel_for(std::size_t{0}, results.size(),
                      [&](std::size_t i) { results[i] = nestEvenOdd(glyph); });

    for (const std::vector<Shape>& result : results) {
        ASSERT_EQ(result.size(), expected.size());
        for (std::size_t s = 0; s < result.size(); ++s) {
            EXPECT_EQ(result[s].outer, expected[s].outer);
            EXPECT_EQ(result[s].holes, expected[s].holes);
        }
    }
}

} // namespace
} // namespace type
