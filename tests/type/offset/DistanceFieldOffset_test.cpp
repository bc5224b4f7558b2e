#include "../geometry/Fixtures.h"
#include "offset/DistanceFieldOffset.h"

#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::circle;
using testing::rectangle;

FaceOutline outline(const std::vector<Contour>& loops) {
    FaceOutline face;
    for (const Contour& loop : loops) {
        face.points.insert(face.points.end(), loop.begin(), loop.end());
        face.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

std::vector<Point2> offsetBy(const FaceOutline& face, double distance, int gridSize = 100) {
    std::vector<Point2> out;
    DistanceFieldOffset(face, mitres(face), gridSize).offset(distance, out);
    return out;
}

double orient(const Point2& a, const Point2& b, const Point2& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Whether two edges of the offset face cross each other (touching not counted).
bool anyEdgesCross(const FaceOutline& face, const std::vector<Point2>& ring) {
    std::vector<std::pair<int, int>> edges;
    int start = 0;
    for (const int size : face.loopSizes) {
        for (int k = 0; k < size; ++k)
            edges.push_back({start + k, start + (k + 1) % size});
        start += size;
    }
    for (const auto& [a, b] : edges)
        for (const auto& [c, d] : edges) {
            if (a == c || a == d || b == c || b == d)
                continue;
            if (orient(ring[a], ring[b], ring[c]) * orient(ring[a], ring[b], ring[d]) < 0 &&
                orient(ring[c], ring[d], ring[a]) * orient(ring[c], ring[d], ring[b]) < 0)
                return true;
        }
    return false;
}

TEST(DistanceFieldOffset, OffsetShortOfAnyMeetingIsTheMitreOffset) {
    const FaceOutline face = outline({rectangle(0, 0, 8, 4), rectangle(5, 1.5, 6, 2.5)});
    const std::vector<Point2> ring = offsetBy(face, 0.5);
    const std::vector<Point2> expected{{0.5, 0.5}, {7.5, 0.5}, {7.5, 3.5}, {0.5, 3.5},
                                       {4.5, 1},   {6.5, 1},   {6.5, 3},   {4.5, 3}};
    ASSERT_EQ(ring.size(), expected.size());
    for (std::size_t i = 0; i < ring.size(); ++i) {
        EXPECT_NEAR(ring[i].x, expected[i].x, 1e-12) << i;
        EXPECT_NEAR(ring[i].y, expected[i].y, 1e-12) << i;
    }
}

TEST(DistanceFieldOffset, BevelWiderThanAStrokeNarrowsOntoItsMiddle) {
    Contour stroke{{0, 0}, {3, 0}, {6, 0}, {10, 0}, {10, 1}, {7, 1}, {4.5, 1}, {1, 1}, {0, 1}};
    const FaceOutline face = outline({stroke});
    const double cell = 10.0 / 100;
    for (const double d : {0.3, 0.6, 2.0, 50.0}) {
        const std::vector<Point2> ring = offsetBy(face, d);
        ASSERT_EQ(ring.size(), stroke.size());
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const bool bottom = stroke[i].y == 0;
            // Never past the middle, but no further from it than a grid cell.
            const double expected = std::min(d, 0.5);
            EXPECT_LE(bottom ? ring[i].y : 1 - ring[i].y, expected + 1e-12) << d << " " << i;
            EXPECT_GE(bottom ? ring[i].y : 1 - ring[i].y, expected - cell) << d << " " << i;
        }
        EXPECT_FALSE(anyEdgesCross(face, ring)) << d;
    }
}

TEST(DistanceFieldOffset, RoundStrokeNeverCrossesOverWhateverTheBevel) {
    // Outer and hole of a ring-shaped stroke, with unlike point counts.
    const FaceOutline face = outline({circle({0, 0}, 10, 48), circle({0, 0}, 9, 31)});
    for (const double d : {0.2, 0.45, 0.5, 0.7, 3.0})
        EXPECT_FALSE(anyEdgesCross(face, offsetBy(face, d))) << d;
}

TEST(DistanceFieldOffset, SamplesFollowTheMitreAtTheFixedStep) {
    const FaceOutline face = outline({rectangle(0, 0, 10, 10)});
    const DistanceFieldOffset field(face, mitres(face), 20);
    EXPECT_DOUBLE_EQ(field.step(), 0.5);
    std::vector<Point2> ring;
    field.offset(0.7, ring);
    EXPECT_NEAR(ring[0].x, 0.7, 1e-12);
    EXPECT_NEAR(ring[2].y, 9.3, 1e-12);
}

TEST(DistanceFieldOffset, OddGridSizesAreClampedNotTrusted) {
    const FaceOutline face = outline({rectangle(0, 0, 8, 8)});
    for (const int gridSize : {0, -7, 1, 100000, 2147483647}) {
        const DistanceFieldOffset field(face, mitres(face), gridSize);
        EXPECT_GE(field.step(), 8.0 / 400) << gridSize;
        EXPECT_LE(field.step(), 8.0 / 4) << gridSize;
        std::vector<Point2> ring;
        field.offset(1.0, ring);
        ASSERT_EQ(ring.size(), 4u);
        EXPECT_NEAR(ring[0].x, 1.0, 1e-12) << gridSize;
    }
}

TEST(DistanceFieldOffset, UnusableOutlinesComeBackUnchanged) {
    const auto expectUnchanged = [](const FaceOutline& face, const std::vector<Mitre>& found) {
        std::vector<Point2> ring{{1, 2}};
        DistanceFieldOffset(face, found, 100).offset(3.0, ring);
        EXPECT_EQ(ring, face.points);
    };
    expectUnchanged({}, {});
    const FaceOutline flat = outline({{{0, 0}, {5, 0}, {5, 0}, {0, 0}}});
    expectUnchanged(flat, mitres(flat));
    const FaceOutline onePoint = outline({{{2, 2}, {2, 2}, {2, 2}}});
    expectUnchanged(onePoint, mitres(onePoint));
    const FaceOutline square = outline({rectangle(0, 0, 4, 4)});
    expectUnchanged(square, {});
    FaceOutline broken = square;
    broken.points[2].x = NAN;
    std::vector<Point2> ring;
    DistanceFieldOffset(broken, mitres(broken), 100).offset(1.0, ring);
    ASSERT_EQ(ring.size(), 4u);

    std::vector<Point2> none{{1, 1}};
    DistanceFieldOffset().offset(1.0, none);
    EXPECT_TRUE(none.empty());
}

TEST(DistanceFieldOffset, RepeatedPointsMoveWithTheirCorner) {
    const FaceOutline face = outline({{{0, 0}, {0, 0}, {4, 0}, {4, 4}, {4, 4}, {0, 4}, {0, 0}}});
    const std::vector<Point2> ring = offsetBy(face, 1.0);
    EXPECT_EQ(ring[0], ring[1]);
    EXPECT_EQ(ring[3], ring[4]);
    EXPECT_EQ(ring[0], ring[6]);
    EXPECT_NEAR(ring[3].x, 3.0, 1e-12);
    EXPECT_NEAR(ring[3].y, 3.0, 1e-12);
}

} // namespace
} // namespace type
