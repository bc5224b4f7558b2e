#include "LayoutTesting.h"
#include "fonts/FontFace.h"
#include "layout/LegacyPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::dejaVu;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::plansOf;

class LegacyPath : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string file = testing::fontFile("DejaVu Sans", "Book");
        ASSERT_FALSE(file.empty());
        auto loaded = FontFace::load(ZString(file), 0);
        ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
        m_face.emplace(std::move(std::get<FontFace>(loaded)));
    }

    LayoutResult layOut(const TypeSettings& settings) { return decomposeLegacy(settings, m_face->face()); }

    std::optional<FontFace> m_face;
};

TEST_F(LegacyPath, GroupsWordsAndLines) {
    const LayoutResult result = layOut(dejaVu(u"A  BC\n"));

    EXPECT_THAT(result.shellsPerCharacter, ElementsAre(1, 1, 1));
    EXPECT_THAT(result.shellsPerWord, ElementsAre(1, 0, 2, 0));
    EXPECT_THAT(result.shellsPerLine, ElementsAre(3, 0));
    EXPECT_THAT(result.messages, IsEmpty());
    ASSERT_EQ(result.boxMin.size(), 3u);
    EXPECT_GT(result.boxMin[2].x, result.boxMin[1].x);
    // Two spaces of about a third of an em each.
    EXPECT_GT(result.boxMin[1].x - result.boxMax[0].x, 20.0 * 0.4);
}

TEST_F(LegacyPath, LinesStepDownByFontSizeTimesLeading) {
    TypeSettings settings = dejaVu(u"H\nH");
    settings.leadingScale = 2.0f;
    settings.fontSize = 5.0;
    const LayoutResult result = layOut(settings);
    ASSERT_EQ(result.boxMin.size(), 2u);
    EXPECT_NEAR(result.boxMin[0].y, 0.0, 1e-12);
    EXPECT_NEAR(result.boxMin[1].y, -10.0, 1e-12);
    EXPECT_NEAR(result.boxMin[1].x, result.boxMin[0].x, 1e-12);
    EXPECT_NEAR(result.boxMax[0].y, 5.0 * 0.729 / 1.164, 0.02);
}

TEST_F(LegacyPath, CutsCounterClockwiseFacesWithClockwiseHoles) {
    const LayoutResult result = layOut(dejaVu(u"OB"));
    ASSERT_EQ(plansOf(result).size(), 2u);
    for (const auto& [plan, holes] : {std::pair{plansOf(result)[0], 1u}, std::pair{plansOf(result)[1], 2u}}) {
        ASSERT_EQ(plan.faces.size(), 1u);
        ASSERT_EQ(plan.holes.size(), holes);
        EXPECT_FALSE(plan.reversed);
        EXPECT_TRUE(isCounterClockwise(plan.faces[0]));
        for (const PlannedHole& hole : plan.holes) {
            EXPECT_FALSE(isCounterClockwise(hole.points));
            EXPECT_TRUE(plan.faceBounds[0].contains(hole.points[0]));
        }
    }
}

TEST_F(LegacyPath, ReportsMissingCharactersOtherThanBlanks) {
    const auto keyOf = [](const LayoutResult& result) {
        return result.messages.empty() ? ZString() : result.messages.back().id.key();
    };
    const LayoutResult some = layOut(dejaVu(u"A\uE000B"));
    EXPECT_EQ(keyOf(some), fontMessages::kTypeMissingGlyphs.key());
    EXPECT_THAT(some.shellsPerCharacter, ElementsAre(1, 1));
    EXPECT_EQ(keyOf(layOut(dejaVu(u" \uE000\n"))), fontMessages::kTypeMissingAllGlyphs.key());
    EXPECT_THAT(layOut(dejaVu(u" \n ")).messages, IsEmpty());
    EXPECT_THAT(layOut(dejaVu(u"")).shellsPerLine, IsEmpty());
}

TEST_F(LegacyPath, DistanceThresholdsScaleWithFontSize) {
    // The outline is thinned in font units with thresholds 11.52 x fontSize
    // times the attribute, so a text twice the size keeps the same points
    // under half the threshold.
    TypeSettings settings = dejaVu(u"O");
    settings.curveResolution = 8;
    settings.thinning.enableDistanceFilter = true;
    settings.thinning.pointDistanceFilter = 1.0;
    const auto pointsOfO = [&] {
        const LayoutResult result = layOut(settings);
        const CapFacePlan& o = plansOf(result)[0];
        return o.faces[0].size() + o.holes[0].points.size();
    };
    const std::size_t small = pointsOfO();
    settings.fontSize *= 2.0;
    settings.thinning.pointDistanceFilter *= 0.5;
    EXPECT_EQ(pointsOfO(), small);
    settings.thinning.enableDistanceFilter = false;
    EXPECT_GT(pointsOfO(), small);
}

} // namespace
} // namespace type
