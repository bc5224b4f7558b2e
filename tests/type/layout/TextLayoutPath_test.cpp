#include "LayoutTesting.h"
#include "layout/TextLayoutPath.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::dejaVu;
using ::testing::ElementsAre;
using testing::filledArea;
using ::testing::IsEmpty;
using testing::shapesOf;

LayoutResult layOut(const TypeSettings& settings) {
    GlyphOutlineCache cache;
    return decomposeTextLayout(settings, cache);
}

double width(const LayoutResult& result, std::size_t character) {
    return result.boxMax[character].x - result.boxMin[character].x;
}

TEST(TextLayoutPath, GroupsTwoLettersSeparatedByASpace) {
    const LayoutResult result = layOut(dejaVu(u"A B"));

    EXPECT_THAT(result.shellsPerCharacter, ElementsAre(1, 1));
    EXPECT_THAT(result.shellsPerWord, ElementsAre(1, 1));
    EXPECT_THAT(result.shellsPerLine, ElementsAre(2));
    EXPECT_EQ(numberOfShells(result), 2);
    EXPECT_THAT(result.lineOffsets, ElementsAre(0.0));
    EXPECT_THAT(result.messages, IsEmpty());
}

TEST(TextLayoutPath, EmptyWordsAndLinesCountZero) {
    EXPECT_THAT(layOut(dejaVu(u"A  B")).shellsPerWord, ElementsAre(1, 0, 1));

    const LayoutResult trailing = layOut(dejaVu(u"A\n"));
    EXPECT_THAT(trailing.shellsPerLine, ElementsAre(1, 0));
    EXPECT_THAT(trailing.shellsPerWord, ElementsAre(1, 0));
    EXPECT_THAT(trailing.lineOffsets, ElementsAre(0.0, 0.0));

    const LayoutResult empty = layOut(dejaVu(u""));
    EXPECT_THAT(empty.shellsPerCharacter, IsEmpty());
    EXPECT_THAT(empty.shellsPerWord, IsEmpty());
    EXPECT_THAT(empty.shellsPerLine, IsEmpty());
    EXPECT_THAT(empty.boxMin, IsEmpty());
    EXPECT_THAT(empty.lineOffsets, IsEmpty());
    EXPECT_THAT(shapesOf(empty), IsEmpty());
    EXPECT_THAT(empty.messages, IsEmpty());
}

TEST(TextLayoutPath, EveryLineBreakKindStartsALineOneLeadingLower) {
    TypeSettings settings = dejaVu(u"B");
    settings.leadingScale = 1.5f;
    const LayoutResult alone = layOut(settings);
    for (const std::u16string_view text : {u"A\nB", u"A\r\nB", u"A\rB"}) {
        settings.text = testing::hexOf(text);
        const LayoutResult result = layOut(settings);
        ASSERT_EQ(result.boxMin.size(), 2u);
        EXPECT_THAT(result.shellsPerLine, ElementsAre(1, 1));
        // One line is fontSize high in the scene.
        EXPECT_NEAR(result.boxMin[1].y, alone.boxMin[0].y - settings.fontSize * 1.5, 1e-9);
        EXPECT_NEAR(result.boxMin[1].x, alone.boxMin[0].x, 1e-9);
    }
}

TEST(TextLayoutPath, SpaceWideningCarriesOverToLaterLines) {
    TypeSettings settings = dejaVu(u"A B  C\nD");
    const LayoutResult normal = layOut(settings);
    settings.spaceWidthScale = 2.0f;
    const LayoutResult wide = layOut(settings);
    ASSERT_EQ(wide.boxMin.size(), 4u);

    const double firstGap = wide.boxMin[1].x - normal.boxMin[1].x;
    EXPECT_GT(firstGap, 0.0);
    EXPECT_NEAR(wide.boxMin[0].x, normal.boxMin[0].x, 1e-9);
    EXPECT_NEAR(wide.boxMin[2].x - normal.boxMin[2].x, 3.0 * firstGap, 1e-6);
    EXPECT_NEAR(wide.boxMin[3].x - normal.boxMin[3].x, 3.0 * firstGap, 1e-6);
}

TEST(TextLayoutPath, KerningScaleAndTrackingSpreadTheLetters) {
    TypeSettings settings = dejaVu(u"HH");
    const LayoutResult normal = layOut(settings);
    const double advance = normal.boxMin[1].x - normal.boxMin[0].x;
    settings.kerningScale = 2.0f;
    const LayoutResult kerned = layOut(settings);
    EXPECT_NEAR(kerned.boxMin[1].x - kerned.boxMin[0].x, 2.0 * advance, 1e-6);

    settings.kerningScale = 1.0f;
    settings.tracking = 50.0f;
    const LayoutResult tracked = layOut(settings);
    EXPECT_NEAR(tracked.boxMin[1].x - tracked.boxMin[0].x, 1.5 * advance, 0.01 * advance);
}

TEST(TextLayoutPath, AlignsEachLineByItsOwnWidth) {
    TypeSettings settings = dejaVu(u"I\nII");
    settings.alignment = AlignmentMode::Centre;
    const LayoutResult centred = layOut(settings);
    ASSERT_EQ(centred.lineOffsets.size(), 2u);
    EXPECT_NEAR(centred.lineOffsets[0], width(centred, 0) * 0.5, 1e-12);
    EXPECT_NEAR(centred.lineOffsets[1], (centred.boxMax[2].x - centred.boxMin[1].x) * 0.5, 1e-12);

    settings.alignment = AlignmentMode::Right;
    EXPECT_NEAR(layOut(settings).lineOffsets[0], width(centred, 0), 1e-12);
}

TEST(TextLayoutPath, CutsHolesIntoTheirGlyphFace) {
    for (const auto& [text, holes] : {std::pair{u"O", 1u}, std::pair{u"B", 2u}, std::pair{u"8", 2u}}) {
        const LayoutResult result = layOut(dejaVu(text));
        ASSERT_EQ(shapesOf(result).size(), 1u);
        ASSERT_EQ(shapesOf(result)[0].size(), 1u);
        const Shape& shape = shapesOf(result)[0][0];
        ASSERT_EQ(shape.holes.size(), holes);
        for (const Contour& hole : shape.holes) {
            for (const Point2& p : hole)
                EXPECT_TRUE(BoundingBox::of(shape.outer).contains(p));
        }
    }
}

TEST(TextLayoutPath, DecomposesEachDistinctGlyphOnce) {
    GlyphOutlineCache cache;
    const LayoutResult four = decomposeTextLayout(dejaVu(u"aaaa"), cache);
    EXPECT_EQ(cache.decompositions(), 1u);
    ASSERT_EQ(four.boxMin.size(), 4u);
    EXPECT_NEAR(filledArea(shapesOf(four)[3]), filledArea(shapesOf(four)[0]), 1e-9);
    EXPECT_GT(four.boxMin[3].x, four.boxMin[2].x);

    decomposeTextLayout(dejaVu(u"aaaa"), cache);
    EXPECT_EQ(cache.decompositions(), 1u);
    decomposeTextLayout(dejaVu(u"abab a"), cache);
    EXPECT_EQ(cache.decompositions(), 2u);

    TypeSettings moved = dejaVu(u"ab");
    moved.fontSize = 3.0;
    moved.kerningScale = 1.5f;
    moved.tracking = 20.0f;
    moved.alignment = AlignmentMode::Right;
    decomposeTextLayout(moved, cache);
    EXPECT_EQ(cache.decompositions(), 2u);

    moved.curveResolution = 9;
    decomposeTextLayout(moved, cache);
    EXPECT_EQ(cache.decompositions(), 4u);
    decomposeTextLayout(testing::settingsFor("Liberation Serif", "Regular", u"ab"), cache);
    EXPECT_EQ(cache.decompositions(), 6u);
}

// Characters the font lacks are Qt's to draw from another face; reporting
// them belongs to the legacy path alone.
TEST(TextLayoutPath, LeavesMissingCharactersToTheFontFallback) {
    const LayoutResult some = layOut(dejaVu(u"A\uE000B"));
    EXPECT_THAT(some.messages, IsEmpty());
    EXPECT_THAT(some.shellsPerCharacter.size(), ::testing::Ge(2u));

    EXPECT_THAT(layOut(dejaVu(u"\uE000")).messages, IsEmpty());
}

} // namespace
} // namespace type
