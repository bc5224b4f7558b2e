#include "../geometry/Fixtures.h"
#include "offset/Mitres.h"

#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::rectangle;
using testing::reversed;

FaceOutline outline(const std::vector<Contour>& loops) {
    FaceOutline face;
    for (const Contour& loop : loops) {
        face.points.insert(face.points.end(), loop.begin(), loop.end());
        face.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

// Where point i lands after an offset by d.
Point2 moved(const FaceOutline& face, const std::vector<Mitre>& found, std::size_t i, double d) {
    const Mitre& m = found[i];
    return {face.points[i].x + m.direction.x * d / m.sine, face.points[i].y + m.direction.y * d / m.sine};
}

void expectNear(const Point2& actual, const Point2& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-12);
    EXPECT_NEAR(actual.y, expected.y, 1e-12);
}

TEST(Mitres, OffsetMovesEveryEdgeOfASquareIntoItsMaterialWhicheverWayItWinds) {
    for (const Contour& square : {rectangle(0, 0, 4, 4), reversed(rectangle(0, 0, 4, 4))}) {
        const FaceOutline face = outline({square});
        const std::vector<Mitre> found = mitres(face);
        for (std::size_t i = 0; i < square.size(); ++i) {
            const Point2 p = moved(face, found, i, 1.0);
            expectNear(p, {square[i].x == 0 ? 1.0 : 3.0, square[i].y == 0 ? 1.0 : 3.0});
        }
    }
}

TEST(Mitres, HolePointsMoveAwayFromTheHole) {
    const Contour hole = rectangle(1, 1, 3, 3);
    for (const Contour& winding : {hole, reversed(hole)}) {
        const FaceOutline face = outline({rectangle(0, 0, 4, 4), winding});
        const std::vector<Mitre> found = mitres(face);
        for (std::size_t i = 4; i < 8; ++i) {
            const Point2 p = moved(face, found, i, 0.5);
            expectNear(p, {face.points[i].x == 1 ? 0.5 : 3.5, face.points[i].y == 1 ? 0.5 : 3.5});
        }
    }
}

TEST(Mitres, ReflexCornerKeepsBothEdgesAtTheOffset) {
    // An L: the corner at (1, 1) points into the material.
    const FaceOutline face = outline({{{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}}});
    const Point2 p = moved(face, mitres(face), 3, 0.25);
    expectNear(p, {0.75, 0.75});
}

TEST(Mitres, RepeatedPointBendsLikeItsCorner) {
    const FaceOutline face = outline({{{0, 0}, {4, 0}, {4, 0}, {4, 4}, {0, 4}}});
    const std::vector<Mitre> found = mitres(face);
    expectNear(moved(face, found, 1, 1.0), {3, 1});
    expectNear(moved(face, found, 2, 1.0), {3, 1});
}

TEST(Mitres, HairlineSpikeTravelsNoFurtherThanTheLimit) {
    const FaceOutline face = outline({{{0, 0}, {10, 0.01}, {0, 0.02}}});
    EXPECT_DOUBLE_EQ(mitres(face)[1].sine, kMinMitreSine);
}

} // namespace
} // namespace type
