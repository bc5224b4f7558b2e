#include "Fixtures.h"
#include "geometry/ContourThinning.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace type {
namespace {

using testing::rectangle;

ThinningSettings colinearOnly(double degrees) {
    return {true, degrees, false, 0.0};
}
ThinningSettings distanceOnly(double minimum) {
    return {false, 0.0, true, minimum};
}

TEST(ContourThinning, MidpointOfAStraightSideIsRemoved) {
    Contour square{{0, 0}, {1, 0}, {2, 0}, {2, 2}, {0, 2}};

    thinContour(square, colinearOnly(1.0));

    EXPECT_EQ(square, (Contour{{0, 0}, {2, 0}, {2, 2}, {0, 2}}));
}

TEST(ContourThinning, MidpointOnTheClosingEdgeIsRemoved) {
    // The window wraps, so the join across last-to-first point is tested too.
    Contour square{{0, 1}, {0, 0}, {2, 0}, {2, 2}, {0, 2}};

    thinContour(square, colinearOnly(1.0));

    EXPECT_EQ(square, (Contour{{0, 0}, {2, 0}, {2, 2}, {0, 2}}));
}

TEST(ContourThinning, TriangleIsNeverThinned) {
    const Contour triangle{{0, 0}, {0.001, 0}, {0, 0.001}};
    Contour thinned = triangle;

    thinContour(thinned, {true, 40.0, true, 1000.0});

    EXPECT_EQ(thinned, triangle);
}

TEST(ContourThinning, DistanceFilterLargerThanEveryEdgeStopsAtThreePoints) {
    Contour hexagon = testing::circle({0, 0}, 1.0, 6);
    const Contour original = hexagon;

    thinContour(hexagon, distanceOnly(100.0));

    // Each removal takes the point after the first; the last three survive.
    EXPECT_EQ(hexagon, (Contour{original[0], original[4], original[5]}));
}

TEST(ContourThinning, EachFilterRemovesPointsOnItsOwn) {
    // A far point on a straight run: only the straightness test catches it.
    Contour longRun{{0, 0}, {50, 0}, {100, 0}, {100, 10}, {0, 10}};
    thinContour(longRun, {true, 1.0, true, 0.5});
    EXPECT_EQ(longRun.size(), 4u);

    // A sharp corner right after its neighbour: only the distance test catches it.
    Contour sharpCorner{{0, 0}, {10, 0}, {10, 0.1}, {10, 10}, {0, 10}};
    thinContour(sharpCorner, {true, 1.0, true, 0.5});
    EXPECT_EQ(sharpCorner, (Contour{{0, 0}, {10, 0}, {10, 10}, {0, 10}}));

    Contour untouched = rectangle(0, 0, 1, 1);
    untouched.insert(untouched.begin() + 1, {0.5, 0.0});
    const Contour before = untouched;
    thinContour(untouched, {false, 40.0, false, 100.0});
    EXPECT_EQ(untouched, before);
}

TEST(ContourThinning, AngleThresholdInRadiansIsComparedWithTheSineOfTheTurn) {
    // At 40 degrees the threshold is 0.698; a 44 degree turn has sine 0.695 and
    // goes, a 46 degree turn (sine 0.719) stays. A near-reversal with the same
    // sine goes as well, since the sine's sign is dropped.
    auto turnAtSecondPoint = [](double degrees) {
        const double r = degrees * std::numbers::pi / 180.0;
        return Contour{{-10, 0}, {0, 0}, {10 * std::cos(r), 10 * std::sin(r)}, {-10, 30}};
    };
    for (const double turn : {44.0, 136.0, 46.0}) {
        Contour contour = turnAtSecondPoint(turn);
        thinContour(contour, colinearOnly(40.0));
        const bool removed = std::find(contour.begin(), contour.end(), Point2{0, 0}) == contour.end();
        EXPECT_EQ(removed, turn != 46.0) << "turn of " << turn << " degrees";
    }
}

TEST(ContourThinning, RepeatedPointCountsAsStraight) {
    Contour square{{0, 0}, {2, 0}, {2, 0}, {2, 2}, {0, 2}};

    thinContour(square, colinearOnly(0.1));

    EXPECT_EQ(square, (Contour{{0, 0}, {2, 0}, {2, 2}, {0, 2}}));
}

TEST(ContourThinning, TinyContoursAreLeftAlone) {
    Contour empty;
    thinContour(empty, {true, 40.0, true, 100.0});
    EXPECT_TRUE(empty.empty());

    Contour single{{1, 1}};
    thinContour(single, {true, 40.0, true, 100.0});
    EXPECT_EQ(single.size(), 1u);
}

} // namespace
} // namespace type
