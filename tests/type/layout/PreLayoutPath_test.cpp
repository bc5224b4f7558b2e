#include "LayoutTesting.h"
#include "layout/PreLayoutPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::dejaVu;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::plansOf;

std::size_t vertexCount(const CapFacePlan& plan) {
    std::size_t count = 0;
    for (const Contour& face : plan.faces)
        count += face.size();
    for (const PlannedHole& hole : plan.holes)
        count += hole.points.size();
    return count;
}

TEST(PreLayoutPath, GroupsWordsAndKeepsThemApart) {
    const LayoutResult result = decomposePreLayout(dejaVu(u"AV  W\n"));

    EXPECT_THAT(result.shellsPerCharacter, ElementsAre(1, 1, 1));
    EXPECT_THAT(result.shellsPerWord, ElementsAre(2, 0, 1, 0));
    EXPECT_THAT(result.shellsPerLine, ElementsAre(3, 0));
    EXPECT_THAT(result.lineOffsets, ElementsAre(0.0, 0.0));
    EXPECT_THAT(result.messages, IsEmpty());
    ASSERT_EQ(result.boxMin.size(), 3u);
    // Two spaces stand between the words; letters of a word may kern.
    EXPECT_GT(result.boxMin[1].x, result.boxMin[0].x);
    EXPECT_GT(result.boxMin[2].x, result.boxMax[1].x + 0.5 * 20.0 * 0.3);
}

TEST(PreLayoutPath, LinesStepDownByFontSizeTimesLeading) {
    TypeSettings settings = dejaVu(u"B\nB");
    settings.leadingScale = 0.5f;
    settings.fontSize = 8.0;
    const LayoutResult result = decomposePreLayout(settings);
    ASSERT_EQ(result.boxMin.size(), 2u);
    EXPECT_NEAR(result.boxMin[1].y, result.boxMin[0].y - 4.0, 1e-9);
    EXPECT_NEAR(result.boxMin[1].x, result.boxMin[0].x, 1e-9);
    EXPECT_NEAR(result.boxMin[0].y, 0.0, 0.02);
    EXPECT_NEAR(result.boxMax[0].y, 8.0 * 0.63, 0.3);
}

TEST(PreLayoutPath, NumbersHolesAfterAllFacesOfTheirCharacter) {
    const LayoutResult result = decomposePreLayout(dejaVu(u"i8"));
    ASSERT_EQ(plansOf(result).size(), 2u);
    const CapFacePlan& i = plansOf(result)[0];
    EXPECT_EQ(i.faces.size(), 2u);
    EXPECT_THAT(i.holes, IsEmpty());

    const CapFacePlan& eight = plansOf(result)[1];
    ASSERT_EQ(eight.faces.size(), 1u);
    ASSERT_EQ(eight.holes.size(), 2u);
    EXPECT_EQ(eight.holes[0].face, 0u);
    EXPECT_EQ(eight.holes[1].face, 0u);
    EXPECT_THAT(result.shellsPerCharacter, ElementsAre(2, 1));
}

TEST(PreLayoutPath, ParityOrientsEveryContourOnItsOwn) {
    TypeSettings settings = dejaVu(u"B");
    settings.setParity = true;
    const CapFacePlan plan = plansOf(decomposePreLayout(settings))[0];
    EXPECT_FALSE(plan.reversed);
    EXPECT_TRUE(isCounterClockwise(plan.faces[0]));
    for (const PlannedHole& hole : plan.holes)
        EXPECT_FALSE(isCounterClockwise(hole.points));
}

TEST(PreLayoutPath, ThinsAndSubdividesInSceneUnits) {
    TypeSettings settings = dejaVu(u"O");
    const std::size_t plain = vertexCount(plansOf(decomposePreLayout(settings))[0]);

    settings.thinning.enableDistanceFilter = true;
    settings.thinning.pointDistanceFilter = 1.0;
    const CapFacePlan thinned = plansOf(decomposePreLayout(settings))[0];
    EXPECT_LT(vertexCount(thinned), plain / 2);
    EXPECT_GE(thinned.faces[0].size(), 3u);

    settings.thinning = {};
    settings.subdivideEdges = true;
    settings.subdivision = {20, 0.05};
    EXPECT_GT(vertexCount(plansOf(decomposePreLayout(settings))[0]), plain * 3 / 2);
}

TEST(PreLayoutPath, ExtremeResolutionsStillGiveTheLetter) {
    for (const int resolution : {0, 1, 60, 100}) {
        TypeSettings settings = dejaVu(u"O");
        settings.curveResolution = resolution;
        const LayoutResult result = decomposePreLayout(settings);
        EXPECT_THAT(result.shellsPerCharacter, ElementsAre(1)) << resolution;
        EXPECT_NEAR(result.boxMax[0].y, 20.0 * 0.64, 1.0) << resolution;
    }
}

} // namespace
} // namespace type
