#include "Fixtures.h"
#include "geometry/CapFacePlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using ::testing::ElementsAre;
using testing::rectangle;
using testing::reversed;

const ThinningSettings kNoThinning{};

// Each hole as its face and point count, in the order the holes are cut in.
std::vector<std::size_t> holesOf(const CapFacePlan& plan) {
    std::vector<std::size_t> holes;
    for (const PlannedHole& hole : plan.holes)
        holes.insert(holes.end(), {hole.face, hole.points.size()});
    return holes;
}

TEST(CapFacePlan, LetterOBecomesOneFaceWithItsCounter) {
    const Contour outer = testing::circle({0, 0}, 10, 12);
    const Contour inner = reversed(testing::circle({0, 0}, 6, 8));

    const CapFacePlan plan = planCapFaces({outer, inner}, kNoThinning);

    ASSERT_EQ(plan.faces.size(), 1u);
    EXPECT_EQ(plan.faces[0], outer);
    ASSERT_EQ(plan.holes.size(), 1u);
    EXPECT_EQ(plan.holes[0].face, 0u);
    EXPECT_EQ(plan.holes[0].points, inner);
    EXPECT_FALSE(plan.reversed);
}

TEST(CapFacePlan, HoleFallingInTwoFaceBoxesIsCutIntoBoth) {
    // The triangle overlaps the square's box and its own box holds the hole's
    // first point, though the hole lies outside the triangle itself.
    const Contour square = rectangle(0, 0, 10, 10);
    const Contour triangle{{5, -1}, {20, -1}, {20, 11}};
    const Contour hole = rectangle(6, 2, 8, 4);

    const CapFacePlan plan = planCapFaces({square, triangle, hole}, kNoThinning);

    ASSERT_EQ(plan.faces.size(), 2u);
    ASSERT_EQ(plan.holes.size(), 2u);
    EXPECT_EQ(plan.holes[0].face, 0u);
    EXPECT_EQ(plan.holes[1].face, 1u);
    EXPECT_THAT(holesOf(plan), ElementsAre(0, 4, 1, 4));
}

TEST(CapFacePlan, HolesAreCutInContourOrderAfterAllFaces) {
    const std::vector<Contour> contours{rectangle(0, 0, 10, 10),
                                        rectangle(20, 0, 30, 10),
                                        {{22, 2}, {28, 2}, {28, 8}, {25, 9}, {22, 8}},
                                        rectangle(2, 2, 8, 8)};

    const CapFacePlan plan = planCapFaces(contours, kNoThinning);

    ASSERT_EQ(plan.faces.size(), 2u);
    EXPECT_THAT(holesOf(plan), ElementsAre(1, 5, 0, 4));
}

TEST(CapFacePlan, HoleOutsideEveryFaceBoxIsDropped) {
    // Both extreme points of the hole are inside the square, so it is a hole,
    // but its first point sticks out above the square's box.
    const std::vector<Contour> contours{rectangle(0, 0, 10, 10), {{5, 12}, {2, 5}, {8, 5}}};

    const CapFacePlan plan = planCapFaces(contours, kNoThinning);

    EXPECT_EQ(plan.faces.size(), 1u);
    EXPECT_TRUE(plan.holes.empty());
}

TEST(CapFacePlan, FacesAndHolesAreThinnedBeforeTheyAreBoxed) {
    Contour outer = rectangle(0, 0, 10, 10);
    outer.insert(outer.begin() + 1, {5, 0});
    Contour hole = rectangle(2, 2, 8, 8);
    hole.insert(hole.begin() + 2, {8, 5});

    const CapFacePlan plan = planCapFaces({outer, hole}, {true, 1.0, false, 0.0});

    ASSERT_EQ(plan.faces.size(), 1u);
    EXPECT_EQ(plan.faces[0], rectangle(0, 0, 10, 10));
    ASSERT_EQ(plan.holes.size(), 1u);
    EXPECT_EQ(plan.holes[0].points, rectangle(2, 2, 8, 8));
    EXPECT_EQ(plan.faceBounds[0], (BoundingBox{{0, 0}, {10, 10}}));
}

TEST(CapFacePlan, BoundsCoverEveryFaceAndIgnoreDegenerateContours) {
    const CapFacePlan plan =
        planCapFaces({rectangle(0, 0, 1, 1), {{50, 50}, {60, 60}}, rectangle(3, -2, 4, 1)}, kNoThinning);

    EXPECT_EQ(plan.faces.size(), 2u);
    EXPECT_EQ(plan.bounds, (BoundingBox{{0, -2}, {4, 1}}));

    const CapFacePlan empty = planCapFaces({}, kNoThinning);
    EXPECT_TRUE(empty.faces.empty());
    EXPECT_TRUE(empty.bounds.empty());
    EXPECT_FALSE(empty.reversed);
}

TEST(CapFacePlan, FirstFaceWindingDecidesReversal) {
    EXPECT_TRUE(planCapFaces({reversed(rectangle(0, 0, 1, 1)), rectangle(2, 0, 3, 1)}, kNoThinning).reversed);
    EXPECT_FALSE(
        planCapFaces({rectangle(0, 0, 1, 1), reversed(rectangle(2, 0, 3, 1))}, kNoThinning).reversed);
}

TEST(CapFacePlan, SubdividedPointsAreWhatHoleInfoCounts) {
    const CapFacePlan plan = planCapFaces({rectangle(0, 0, 10, 10), rectangle(2, 2, 8, 8)}, kNoThinning,
                                          EdgeSubdivisionSettings{10, 4.0});

    // Sides of 10 split in two, sides of 6 stay whole.
    ASSERT_EQ(plan.faces.size(), 1u);
    EXPECT_EQ(plan.faces[0].size(), 8u);
    EXPECT_THAT(holesOf(plan), ElementsAre(0, 4));
}

} // namespace
} // namespace type
