#include "extrude/ProfileRings.h"

#include <gtest/gtest.h>

namespace type {
namespace {

// The default wall curve is the neutral value 0.5 everywhere; the bevel
// curves below fall from 1 to 0 in a straight line.
ProfileSamples samples(const ExtrudeSettings& s, double wall = 0.5) {
    ProfileSamples out;
    out.extrude.assign(s.extrudeDivisions + 1, wall);
    for (int i = 0; i <= s.bevelDivisions; ++i)
        out.front.push_back(1.0 - static_cast<double>(i) / s.bevelDivisions);
    for (int i = 0; i <= s.backBevelDivisions; ++i)
        out.back.push_back(1.0 - static_cast<double>(i) / s.backBevelDivisions);
    return out;
}

ExtrudeSettings plain() {
    ExtrudeSettings s;
    s.extrusion = true;
    s.extrudeDistance = 2.5;
    s.extrudeDivisions = 4;
    s.extrudeOffset = 0.3;
    s.bevelDistance = 0.35;
    s.bevelOffset = 0.25;
    s.bevelDivisions = 3;
    s.backBevelDistance = 0.5;
    s.backBevelOffset = 0.2;
    s.backBevelDivisions = 2;
    return s;
}

TEST(ProfileRings, FourWallDivisionsGiveFiveEvenlySpacedRingsWithoutOffset) {
    const Profile p = sampleProfile(plain(), samples(plain()));
    ASSERT_EQ(p.rings.size(), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(p.rings[i].offset, 0.0f) << i;
        EXPECT_DOUBLE_EQ(p.rings[i].depth, 2.5 * i / 4) << i;
    }
    EXPECT_EQ(p.wallsEnd, 5);
}

TEST(ProfileRings, OuterBevelPutsTheWallsAtTheBevelDistanceBetweenItsTwoBlocks) {
    ExtrudeSettings s = plain();
    s.bevelStyle = InternalBevel::kOuter;
    const Profile p = sampleProfile(s, samples(s));
    ASSERT_EQ(p.rings.size(), 3u + 5u + 3u);
    EXPECT_EQ(p.outerFrontEnd, 3);
    EXPECT_EQ(p.wallsEnd, 8);
    // The front block ends where the bevel curve has fallen all the way.
    const double y0 = 0.25;
    for (int i = 0; i < 5; ++i) {
        EXPECT_FLOAT_EQ(p.rings[3 + i].offset, 0.35f) << i;
        EXPECT_NEAR(p.rings[3 + i].depth, y0 + (2.5 - 2 * y0) * i / 4, 1e-12) << i;
    }
    EXPECT_EQ(p.rings.front().offset, 0.0f);
    EXPECT_EQ(p.rings.front().depth, 0.0);
    // The back block runs the front one backwards, out to the face's own outline.
    EXPECT_NEAR(p.rings.back().offset, 0.0, 1e-6);
    EXPECT_NEAR(p.rings.back().depth, 2.5, 1e-12);
    EXPECT_FALSE(p.isWallJoin(2));
    EXPECT_TRUE(p.isWallJoin(3));
    EXPECT_FALSE(p.isWallJoin(7));
}

TEST(ProfileRings, InnerBevelWithBackBevelLeadsInBeforeTheWallsAndBevelsAfterThem) {
    ExtrudeSettings s = plain();
    s.bevelStyle = InternalBevel::kInner;
    s.backBevel = true;
    const Profile p = sampleProfile(s, samples(s));
    ASSERT_EQ(p.rings.size(), 2u + 5u + 3u);
    EXPECT_EQ(p.leadInEnd, 2);
    EXPECT_EQ(p.wallsEnd, 7);
    EXPECT_DOUBLE_EQ(p.rings[0].depth, -0.5);
    EXPECT_FLOAT_EQ(p.rings[0].offset, -0.2f);
    EXPECT_DOUBLE_EQ(p.rings[1].depth, -0.25);
    EXPECT_DOUBLE_EQ(p.rings.back().depth, 2.5 + 0.35);
    EXPECT_FLOAT_EQ(p.rings.back().offset, -0.25f);
}

TEST(ProfileRings, BackBevelAloneBuildsNothingWithoutTheInnerStyle) {
    ExtrudeSettings s = plain();
    s.backBevel = true;
    EXPECT_EQ(sampleProfile(s, samples(s)).rings.size(), 5u);
}

TEST(ProfileRings, WallCurveTapersByTheExtrudeOffsetAroundItsNeutralValue) {
    const ExtrudeSettings s = plain();
    EXPECT_FLOAT_EQ(sampleProfile(s, samples(s, 0.0)).rings[2].offset, -0.3f);
    EXPECT_FLOAT_EQ(sampleProfile(s, samples(s, 1.0)).rings[2].offset, 0.3f);
}

TEST(ProfileRings, WithoutExtrusionThereAreNoRings) {
    ExtrudeSettings s = plain();
    s.extrusion = false;
    EXPECT_TRUE(sampleProfile(s, samples(s)).rings.empty());
}

// A curve that could not be read reads as 0: the profile is still built.
TEST(ProfileRings, UnreadableCurvesStillGiveEveryRing) {
    ExtrudeSettings s = plain();
    s.bevelStyle = InternalBevel::kOuter;
    EXPECT_EQ(sampleProfile(s, ProfileSamples{}).rings.size(), 11u);
}

} // namespace
} // namespace type
