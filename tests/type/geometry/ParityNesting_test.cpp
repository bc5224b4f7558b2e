#include "Fixtures.h"
#include "geometry/Orientation.h"
#include "geometry/ParityNesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using ::testing::ElementsAre;
using testing::rectangle;
using testing::reversed;

TEST(ParityNesting, DepthCountsEveryEnclosingContour) {
    // Concentric rings, listed out of order and with mixed winding.
    const std::vector<Contour> contours{rectangle(2, 2, 8, 8), reversed(rectangle(0, 0, 10, 10)),
                                        rectangle(4, 4, 6, 6), reversed(rectangle(1, 1, 9, 9))};

    EXPECT_THAT(nestingDepths(contours), ElementsAre(2, 0, 3, 1));
}

TEST(ParityNesting, SideBySideContoursAreAllOuter) {
    EXPECT_THAT(nestingDepths({rectangle(0, 0, 1, 1), rectangle(2, 0, 3, 1), {}}), ElementsAre(0, 0, 0));
}

TEST(ParityNesting, BothExtremePointsMustLieInside) {
    // The bar reaches out of the ring on the right.
    const std::vector<Contour> contours{rectangle(0, 0, 10, 10), rectangle(2, 4, 12, 6)};

    EXPECT_THAT(nestingDepths(contours), ElementsAre(0, 0));
}

TEST(ParityNesting, FirstOfEqualExtremePointsIsTheOneTested) {
    // The left side is vertical: its first point lies in the square, its
    // second one above it.
    const std::vector<Contour> contours{rectangle(0, 0, 10, 10), {{2, 5}, {8, 5}, {8, 8}, {2, 15}}};

    EXPECT_THAT(nestingDepths(contours), ElementsAre(0, 1));
}

TEST(ParityNesting, BoundaryPointsFollowTheStrictCrossingRule) {
    const Contour square = rectangle(0, 0, 1, 1);

    EXPECT_TRUE(containsEvenOdd(square, {0.5, 0.5}));
    EXPECT_TRUE(containsEvenOdd(square, {0.0, 0.5}));
    EXPECT_TRUE(containsEvenOdd(square, {0.5, 0.0}));
    EXPECT_FALSE(containsEvenOdd(square, {1.0, 0.5}));
    EXPECT_FALSE(containsEvenOdd(square, {0.5, 1.0}));
    EXPECT_FALSE(containsEvenOdd({}, {0.0, 0.0}));
}

TEST(Orientation, SignOfTheShoelaceAreaGivesTheWinding) {
    EXPECT_DOUBLE_EQ(signedArea(rectangle(0, 0, 2, 3)), 6.0);
    EXPECT_DOUBLE_EQ(signedArea(reversed(rectangle(0, 0, 2, 3))), -6.0);
    EXPECT_TRUE(isCounterClockwise(rectangle(0, 0, 2, 3)));
    EXPECT_FALSE(isCounterClockwise(reversed(rectangle(0, 0, 2, 3))));
    EXPECT_TRUE(isCounterClockwise({}));
    EXPECT_TRUE(isCounterClockwise({{0, 0}, {1, 1}, {2, 2}}));
}

} // namespace
} // namespace type
