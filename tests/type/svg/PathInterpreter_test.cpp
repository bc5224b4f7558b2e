#include "svg/PathInterpreter.h"

#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

std::vector<Contour> outlines(std::string_view data, int resolution = 4) {
    std::optional<std::vector<Contour>> result = interpretPath(tokenisePath(data), resolution);
    EXPECT_TRUE(result.has_value()) << data;
    return result.value_or(std::vector<Contour>{});
}

TEST(PathInterpreter, ImplicitLineTosAfterAMoveFollowItsCase) {
    EXPECT_EQ(outlines("M0 0 10 0 10 10z"), (std::vector<Contour>{{{0, 0}, {10, 0}, {10, 10}}}));
    EXPECT_EQ(outlines("m5 5 10 0 0 10z"), (std::vector<Contour>{{{5, 5}, {15, 5}, {15, 15}}}));
}

TEST(PathInterpreter, ClosingPointThatRepeatsTheStartIsDropped) {
    EXPECT_EQ(outlines("M0 0 L10 0 L10 10 L0 0 Z"), (std::vector<Contour>{{{0, 0}, {10, 0}, {10, 10}}}));
    // Also at a move, and at the end of the data without a close.
    EXPECT_EQ(
        outlines("M0 0 H4 V4 H0 V0 M10 10 h1 v1 h-1 v-1"),
        (std::vector<Contour>{{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, {{10, 10}, {11, 10}, {11, 11}, {10, 11}}}));
}

TEST(PathInterpreter, DrawingAfterACloseStartsAtTheSubpathStart) {
    EXPECT_EQ(outlines("M1 1 l4 0 l0 4 z l-1 0 l0 -1"),
              (std::vector<Contour>{{{1, 1}, {5, 1}, {5, 5}}, {{1, 1}, {0, 1}, {0, 0}}}));
}

TEST(PathInterpreter, CurvesAddResolutionPointsEach) {
    EXPECT_EQ(outlines("M0 0 C0 10 10 10 10 0", 4)[0].size(), 5u);
    EXPECT_EQ(outlines("M0 0 C0 10 10 10 10 0", 1)[0], (Contour{{0, 0}, {10, 0}}));
    EXPECT_EQ(outlines("M0 0 Q5 10 10 0", 8)[0].size(), 9u);
    EXPECT_EQ(outlines("M0 0 A5 5 0 0 1 10 0", 6)[0].size(), 7u);
}

TEST(PathInterpreter, SmoothCurvesReflectOnlyAfterTheirOwnKind) {
    // After a cubic, "s" mirrors the second control point: the curve is
    // symmetric about x = 20 and its midpoint sits at the same height as the
    // first curve's midpoint, mirrored.
    const Contour smooth = outlines("M0 0 C0 10 10 10 10 0 S20 -10 20 0", 2)[0];
    ASSERT_EQ(smooth.size(), 5u);
    EXPECT_DOUBLE_EQ(smooth[1].y, 7.5);
    EXPECT_DOUBLE_EQ(smooth[3].y, -7.5);
    // After a line, the first control point is the current point itself.
    const Contour afterLine = outlines("M0 0 L10 0 S20 10 20 0", 2)[0];
    EXPECT_DOUBLE_EQ(afterLine[2].y, 3.75);
    const Contour quadratic = outlines("M0 0 Q5 10 10 0 T20 0", 2)[0];
    EXPECT_DOUBLE_EQ(quadratic[3].y, -5.0);
}

TEST(PathInterpreter, ArcsFollowTheirFlags) {
    // A half circle of radius 5 from (0,0) to (10,0): the sweep flag picks
    // the side, the middle point lies on the circle.
    const Contour below = outlines("M0 0 A5 5 0 0 1 10 0", 2)[0];
    const Contour above = outlines("M0 0 A5 5 0 0 0 10 0", 2)[0];
    EXPECT_NEAR(below[1].x, 5.0, 1e-9);
    EXPECT_NEAR(std::abs(below[1].y), 5.0, 1e-9);
    EXPECT_NEAR(above[1].y, -below[1].y, 1e-9);
    // Radii too small to span the chord are scaled up; zero radii draw a line.
    EXPECT_NEAR(std::abs(outlines("M0 0 A1 1 0 0 1 10 0", 2)[0][1].y), 5.0, 1e-9);
    EXPECT_EQ(outlines("M0 0 A0 5 0 0 1 10 0 L5 5", 8)[0], (Contour{{0, 0}, {10, 0}, {5, 5}}));
    // The large-arc flag takes the long way round a circle of radius 10.
    const Contour small = outlines("M0 0 a10 10 0 0 1 10 10", 16)[0];
    const Contour large = outlines("M0 0 a10 10 0 1 1 10 10", 16)[0];
    double smallReach = 0.0;
    double largeReach = 0.0;
    for (const Point2& p : small)
        smallReach = std::max(smallReach, std::hypot(p.x - 5, p.y - 5));
    for (const Point2& p : large)
        largeReach = std::max(largeReach, std::hypot(p.x - 5, p.y - 5));
    EXPECT_GT(largeReach, 2.0 * smallReach);
}

TEST(PathInterpreter, WrongNumberCountMakesThePathUnusable) {
    EXPECT_FALSE(interpretPath(tokenisePath("M0 0 L10"), 4).has_value());
    EXPECT_FALSE(interpretPath(tokenisePath("M0 0 C1 2 3 4 5"), 4).has_value());
    EXPECT_FALSE(interpretPath(tokenisePath("M0 0 L1 1 Z 5 5"), 4).has_value());
}

} // namespace
} // namespace type
