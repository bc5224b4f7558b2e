#include "../layout/LayoutTesting.h"
#include "FontNodeTesting.h"
#include "fonts/FontFace.h"
#include "layout/LegacyPath.h"
#include "layout/PreLayoutPath.h"
#include "layout/TextLayoutPath.h"
#include "textnode/ManipulatorArrays.h"
#include "textnode/TextToMesh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace type {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::TypeNodeTest;

using FontNodeEvaluation = TypeNodeTest;

std::vector<ZPoint> pointsOf(LayoutResult layout) {
    ZObject data;
    EXPECT_TRUE(textToMesh(layout, data));
    ZPointArray points;
    ZFnMesh(data).getPoints(points);
    return points.asVector();
}

TEST_F(FontNodeEvaluation, GroupsCharactersWordsAndLines) {
    auto totalsOf = [&](const std::string& text) {
        setText(text);
        return doubles(fontNode::vertsPerChar);
    };
    const std::vector<double> a = totalsOf("A");
    const std::vector<double> b = totalsOf("B");
    ASSERT_EQ(a.size(), 1u);
    ASSERT_EQ(b.size(), 1u);

    setText("A B");
    EXPECT_THAT(doubles(fontNode::solidsPerCharacter), ElementsAre(1, 1));
    EXPECT_THAT(doubles(fontNode::solidsPerWord), ElementsAre(1, 1));
    EXPECT_THAT(doubles(fontNode::solidsPerLine), ElementsAre(2));
    EXPECT_EQ(plug(fontNode::numberOfShells).asInt(), 2);
    EXPECT_THAT(doubles(fontNode::vertsPerChar), ElementsAre(a[0], a[0] + b[0]));
    EXPECT_EQ(mesh().numVertices(), static_cast<int>(a[0] + b[0]));
    EXPECT_EQ(mesh().numPolygons(), 2);
    EXPECT_EQ(vectors(fontNode::manipulatorPivots), vectors(fontNode::characterBoundingBoxesMin));

    setText("A  B");
    EXPECT_THAT(doubles(fontNode::solidsPerWord), ElementsAre(1, 0, 1));

    setText("A\n");
    EXPECT_THAT(doubles(fontNode::solidsPerLine), ElementsAre(1, 0));
    EXPECT_THAT(doubles(fontNode::solidsPerWord), ElementsAre(1, 0));
    EXPECT_THAT(doubles(fontNode::alignmentAdjustments), ElementsAre(0.0, 0.0));
}

TEST_F(FontNodeEvaluation, EmptyTextGivesEmptyOutputsInOneEvaluation) {
    setText("");
    EXPECT_EQ(mesh().numVertices(), 0);
    EXPECT_EQ(mesh().numPolygons(), 0);
    const int afterMesh = evaluations();
    EXPECT_THAT(doubles(fontNode::solidsPerCharacter), IsEmpty());
    EXPECT_THAT(doubles(fontNode::solidsPerWord), IsEmpty());
    EXPECT_THAT(doubles(fontNode::solidsPerLine), IsEmpty());
    EXPECT_THAT(doubles(fontNode::vertsPerChar), IsEmpty());
    EXPECT_THAT(doubles(fontNode::alignmentAdjustments), IsEmpty());
    EXPECT_THAT(vectors(fontNode::characterBoundingBoxesMin), IsEmpty());
    EXPECT_THAT(vectors(fontNode::characterBoundingBoxesMax), IsEmpty());
    EXPECT_THAT(vectors(fontNode::manipulatorPivots), IsEmpty());
    EXPECT_THAT(ints(fontNode::holeInfo), IsEmpty());
    EXPECT_EQ(plug(fontNode::numberOfShells).asInt(), 0);
    EXPECT_EQ(plug(fontNode::fontError).asString(), "");
    EXPECT_EQ(evaluations(), afterMesh) << "outputs left dirty were computed again";
}

TEST_F(FontNodeEvaluation, HoleInfoNamesTheMeshHoles) {
    setText("O");
    const std::vector<int> o = ints(fontNode::holeInfo);
    ASSERT_EQ(o.size(), 3u);
    EXPECT_EQ(o[0], 0);
    EXPECT_EQ(o[2] + o[1], mesh().numVertices()) << "the hole's points come last";

    setText("B");
    const std::vector<int> b = ints(fontNode::holeInfo);
    ASSERT_EQ(b.size(), 6u);
    EXPECT_EQ(b[0], 0);
    EXPECT_EQ(b[3], 0);
    EXPECT_EQ(b[5], b[2] + b[1]);
    ZIntArray meshHoles, holeVertices;
    mesh().getHoles(meshHoles, holeVertices);
    ASSERT_EQ(meshHoles.length(), 6u);
    for (unsigned int h = 0; h < 6; h += 3) {
        EXPECT_EQ(meshHoles[h + 1], b[h + 1]);
        EXPECT_EQ(holeVertices[static_cast<unsigned int>(meshHoles[h + 2])], b[h + 2]);
    }
}

TEST_F(FontNodeEvaluation, AlignmentOffsetsMoveTheirLines) {
    setText("I\nWW");
    ASSERT_TRUE(plug(fontNode::alignmentMode).setValue(static_cast<short>(AlignmentMode::Right)));
    const std::vector<double> offsets = doubles(fontNode::alignmentAdjustments);
    const std::vector<double> totals = doubles(fontNode::vertsPerChar);
    const std::vector<ZVector> minima = vectors(fontNode::characterBoundingBoxesMin);
    const std::vector<ZVector> maxima = vectors(fontNode::characterBoundingBoxesMax);
    ASSERT_EQ(offsets.size(), 2u);
    ASSERT_EQ(totals.size(), 3u);
    EXPECT_NEAR(offsets[0], maxima[0].x - minima[0].x, 1e-9);
    EXPECT_NEAR(offsets[1], maxima[2].x - minima[1].x, 1e-9);

    // Right-aligned, each line ends where its box began.
    ZPointArray points;
    mesh().getPoints(points);
    auto rightEdge = [&](int first, int end) {
        double right = -1e300;
        for (int v = first; v < end; ++v)
            right = std::max(right, points[static_cast<unsigned int>(v)].x);
        return right;
    };
    EXPECT_NEAR(rightEdge(0, static_cast<int>(totals[0])), minima[0].x, 1e-9);
    EXPECT_NEAR(rightEdge(static_cast<int>(totals[0]), static_cast<int>(totals[2])), minima[1].x, 1e-9);
}

TEST_F(FontNodeEvaluation, FlagsChooseTheDecompositionPath) {
    setText("Og");
    const TypeSettings settings = testing::dejaVu(u"Og");
    auto loaded = FontFace::load(ZString(testing::fontFile("DejaVu Sans", "Book")), 0);
    ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
    GlyphOutlineCache cache;
    const std::vector<ZPoint> textLayout = pointsOf(decomposeTextLayout(settings, cache));
    const std::vector<ZPoint> preLayout = pointsOf(decomposePreLayout(settings));
    const std::vector<ZPoint> legacy = pointsOf(decomposeLegacy(settings, std::get<FontFace>(loaded).face()));
    ASSERT_NE(textLayout, preLayout);
    ASSERT_NE(textLayout, legacy);
    ASSERT_NE(preLayout, legacy);

    EXPECT_EQ(meshPoints(), textLayout);
    ASSERT_TRUE(plug(fontNode::preTLDecompose).setValue(true));
    EXPECT_EQ(meshPoints(), preLayout);
    ASSERT_TRUE(plug(fontNode::legacyDecomposition).setValue(true));
    EXPECT_EQ(meshPoints(), legacy);
    ASSERT_TRUE(plug(fontNode::preTLDecompose).setValue(false));
    EXPECT_EQ(meshPoints(), legacy);
}

TEST_F(FontNodeEvaluation, AMissingFontIsReportedAndTheDefaultFontDrawn) {
    setText("Ag");
    ASSERT_TRUE(plug(fontNode::currentFont).setValue("Liberation Serif"));
    ASSERT_TRUE(plug(fontNode::currentStyle).setValue("Italic"));
    const std::vector<double> defaultFont = doubles(fontNode::vertsPerChar);
    ASSERT_EQ(defaultFont.size(), 2u);

    ASSERT_TRUE(plug(fontNode::currentFont).setValue("No Such Family"));
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(doubles(fontNode::vertsPerChar), defaultFont);
    const std::string shown = ::testing::internal::GetCapturedStderr();
    const std::string notFound = "The current font (No Such Family) is missing or not suitable for Type. "
                                 "Please select a different font.";
    EXPECT_EQ(plug(fontNode::fontError).asString(), notFound.c_str());
    EXPECT_THAT(shown, HasSubstr(notFound));

    ASSERT_TRUE(plug(fontNode::currentFont).setValue(""));
    EXPECT_EQ(doubles(fontNode::vertsPerChar), defaultFont);
    EXPECT_EQ(plug(fontNode::fontError).asString(), "No font specified.");

    ASSERT_TRUE(plug(fontNode::currentFont).setValue("DejaVu Sans"));
    EXPECT_NE(doubles(fontNode::vertsPerChar), defaultFont);
    EXPECT_EQ(plug(fontNode::fontError).asString(), "");
}

TEST_F(FontNodeEvaluation, DecomposesEachGlyphOnce) {
    EXPECT_EQ(mesh().numPolygons(), 6) << "3, D, T, y, p, e";
    const std::size_t first = glyphDecompositions();
    EXPECT_EQ(first, 6u);
    const int evaluated = evaluations();
    EXPECT_FALSE(ints(fontNode::holeInfo).empty());
    EXPECT_FALSE(ints(fontNode::holeInfo).empty());
    EXPECT_EQ(doubles(fontNode::solidsPerCharacter).size(), 6u);
    EXPECT_EQ(evaluations(), evaluated);
    EXPECT_EQ(glyphDecompositions(), first);

    setText("3D Typf");
    EXPECT_FALSE(ints(fontNode::holeInfo).empty());
    EXPECT_EQ(glyphDecompositions(), first + 1) << "only the new f";

    ASSERT_TRUE(plug(fontNode::fontSize).setValue(35.0f));
    ASSERT_TRUE(plug(fontNode::tracking).setValue(3.0f));
    EXPECT_EQ(mesh().numPolygons(), 6);
    EXPECT_EQ(glyphDecompositions(), first + 1) << "layout settings move outlines, they do not change them";

    ASSERT_TRUE(plug(fontNode::curveResolution).setValue(6));
    EXPECT_EQ(mesh().numPolygons(), 6);
    EXPECT_EQ(glyphDecompositions(), first + 7) << "a new resolution changes every outline";
}

TEST_F(FontNodeEvaluation, StoresManipulatorEditsPerElement) {
    setText("Hi mom");
    ASSERT_EQ(doubles(fontNode::solidsPerCharacter).size(), 5u);
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Character)));
    ASSERT_TRUE(plug(fontNode::manipulateId).setValue(2));
    setTriple(fontNode::positionAdjust, 1, 2, 3);
    setTriple(fontNode::rotationAdjust, 0, 0, 45);
    setTriple(fontNode::scaleAdjust, 0.5, 0.5, 0.5);

    std::vector<ZVector> positions = vectors(fontNode::manipulatorPositionsPP);
    ASSERT_EQ(positions.size(), 5u);
    EXPECT_EQ(positions[2], ZVector(1, 2, 3));
    EXPECT_EQ(positions[1], ZVector());
    EXPECT_EQ(vectors(fontNode::manipulatorRotationsPP)[2], ZVector(0, 0, 45));
    EXPECT_EQ(vectors(fontNode::manipulatorScalesPP)[2], ZVector(0.5, 0.5, 0.5));
    EXPECT_EQ(vectors(fontNode::manipulatorWordPositionsPP).size(), 2u);
    EXPECT_EQ(vectors(fontNode::manipulatorLineScalesPP).size(), 1u);

    // In Word mode the id counts words: word 1 is "mom".
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Word)));
    ASSERT_TRUE(plug(fontNode::manipulateId).setValue(1));
    setTriple(fontNode::positionAdjust, 4, 5, 6);
    EXPECT_THAT(vectors(fontNode::manipulatorWordPositionsPP), ElementsAre(ZVector(), ZVector(4, 5, 6)));
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[2], ZVector(1, 2, 3)) << "character edits are kept";
    EXPECT_EQ(plug(fontNode::manipulateWord).asInt(), 1);
    EXPECT_EQ(plug(fontNode::manipulateLine).asInt(), 0);
    EXPECT_EQ(plug(fontNode::manipulatePolygon).asInt(), 3) << "the word's first shell";

    // A shorter text cuts the stored edits to its characters and words; the
    // edit of the word cut away goes with it, not to another word.
    setText("Hi");
    EXPECT_THAT(vectors(fontNode::manipulatorPositionsPP), ElementsAre(ZVector(), ZVector()));
    EXPECT_THAT(vectors(fontNode::manipulatorWordPositionsPP), ElementsAre(ZVector()));
}

// Values that are not numbers, or far past any scene, used to reach the
// mesh as NaN or overflowing points that only an exporter noticed.
TEST_F(FontNodeEvaluation, UnusableSettingsGiveAnEmptyMeshAndAMessage) {
    setText("Ag");
    ASSERT_EQ(mesh().numPolygons(), 2);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    const struct {
        const ZObject& attribute;
        const char* name;
        float value;
        float usable;
        const char* shown;
    } cases[] = {
        {fontNode::fontSize, "fontSize", nan, 20.0f, "nan"},
        {fontNode::fontSize, "fontSize", inf, 20.0f, "inf"},
        {fontNode::fontSize, "fontSize", -1e30f, 20.0f, "-1e+30"},
        {fontNode::kerningScale, "kerningScale", nan, 1.0f, "nan"},
        {fontNode::spaceWidthScale, "spaceWidthScale", -inf, 1.0f, "-inf"},
        {fontNode::leadingScale, "leadingScale", 1e20f, 1.0f, "1e+20"},
        {fontNode::tracking, "tracking", nan, 0.0f, "nan"},
        {fontNode::colinearAngle, "colinearAngle", nan, 0.2f, "nan"},
        {fontNode::pointDistanceFilter, "pointDistanceFilter", inf, 0.2f, "inf"},
        {fontNode::maxEdgeLength, "maxEdgeLength", nan, 5.0f, "nan"},
    };
    for (const auto& bad : cases) {
        SCOPED_TRACE(std::string(bad.name) + " " + bad.shown);
        ASSERT_TRUE(plug(bad.attribute).setValue(bad.value));
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(mesh().numVertices(), 0);
        const std::string shown = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(mesh().numPolygons(), 0);
        EXPECT_THAT(doubles(fontNode::vertsPerChar), IsEmpty());
        EXPECT_THAT(doubles(fontNode::solidsPerCharacter), IsEmpty());
        EXPECT_THAT(vectors(fontNode::characterBoundingBoxesMax), IsEmpty());
        EXPECT_EQ(plug(fontNode::numberOfShells).asInt(), 0);
        const std::string message = plug(fontNode::fontError).asString().asStdString();
        EXPECT_THAT(message, HasSubstr(std::string("The value of ") + bad.name + " (" + bad.shown + ")"));
        EXPECT_THAT(shown, HasSubstr(message));

        ASSERT_TRUE(plug(bad.attribute).setValue(bad.usable));
        EXPECT_EQ(mesh().numPolygons(), 2);
        EXPECT_EQ(plug(fontNode::fontError).asString(), "");
    }
}

// Every message is shown, but the field beside the font shows one: the last.
TEST_F(FontNodeEvaluation, FontErrorHoldsTheLastMessageOnly) {
    ASSERT_TRUE(plug(fontNode::legacyDecomposition).setValue(true));
    ASSERT_TRUE(plug(fontNode::currentFont).setValue("No Such Family"));
    setText("A\uE000");
    ::testing::internal::CaptureStderr();
    const std::string fontError = plug(fontNode::fontError).asString().asStdString();
    const std::string shown = ::testing::internal::GetCapturedStderr();

    const std::string missingGlyphs = "Some input characters are not available in the current font. "
                                      "Try a different font or writing system.";
    EXPECT_EQ(fontError, missingGlyphs);
    EXPECT_THAT(shown, HasSubstr("The current font (No Such Family) is missing"));
    EXPECT_THAT(shown, HasSubstr(missingGlyphs));
}

// Dragging the manipulator writes the adjust values many times a second; the
// text, its font and its layout stay as they were, so its messages must not
// be shown again with every step.
TEST_F(FontNodeEvaluation, ManipulatorEditsDoNotDecomposeAgain) {
    ASSERT_TRUE(plug(fontNode::currentFont).setValue("No Such Family"));
    setText("Hi mom");
    ASSERT_EQ(doubles(fontNode::solidsPerCharacter).size(), 5u);
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Character)));
    ASSERT_TRUE(plug(fontNode::manipulateId).setValue(1));
    const std::vector<double> offsets = doubles(fontNode::alignmentAdjustments);

    ::testing::internal::CaptureStderr();
    for (int step = 1; step <= 3; ++step) {
        setTriple(fontNode::positionAdjust, step, 0, 0);
        EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[1], ZVector(step, 0, 0));
        EXPECT_EQ(doubles(fontNode::alignmentAdjustments), offsets);
    }
    setTriple(fontNode::rotationAdjust, 0, 0, 30);
    setTriple(fontNode::scaleAdjust, 1, 1, 1);
    EXPECT_EQ(vectors(fontNode::manipulatorScalesPP)[1], ZVector(1, 1, 1));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");

    // A new alignment is a new layout: the next edit brings it up to date.
    ASSERT_TRUE(plug(fontNode::alignmentMode).setValue(static_cast<short>(AlignmentMode::Right)));
    setTriple(fontNode::positionAdjust, 7, 0, 0);
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[1], ZVector(7, 0, 0));
    const std::vector<double> right = doubles(fontNode::alignmentAdjustments);
    ASSERT_EQ(right.size(), 1u);
    EXPECT_GT(right[0], 0.0);
}

// Choosing another level or element brought the values of the last element
// along: they were stored again, into the new one, before the tool could
// load its own.
TEST_F(FontNodeEvaluation, SwitchingModeDoesNotCopyTheAdjustIntoTheNewElement) {
    setText("Hi mom");
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Character)));
    ASSERT_TRUE(plug(fontNode::manipulateId).setValue(1));
    setTriple(fontNode::positionAdjust, 1, 2, 3);
    ASSERT_EQ(vectors(fontNode::manipulatorPositionsPP)[1], ZVector(1, 2, 3));

    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Line)));
    EXPECT_THAT(vectors(fontNode::manipulatorLinePositionsPP), ElementsAre(ZVector()));
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Character)));
    ASSERT_TRUE(plug(fontNode::manipulateId).setValue(3));
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[3], ZVector());
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[1], ZVector(1, 2, 3));

    // The next edit goes to the element now chosen.
    setTriple(fontNode::positionAdjust, 0, 0, 4);
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[3], ZVector(0, 0, 4));
    EXPECT_EQ(vectors(fontNode::manipulatorPositionsPP)[1], ZVector(1, 2, 3));
}

TEST_F(FontNodeEvaluation, UnusableManipulatorEditsAreShownAndNotStored) {
    setText("Hi");
    ASSERT_TRUE(plug(fontNode::manipulatorMode).setValue(static_cast<short>(ManipulatorMode::Character)));
    setTriple(fontNode::positionAdjust, 1, 2, 3);
    ASSERT_THAT(vectors(fontNode::manipulatorPositionsPP), ElementsAre(ZVector(1, 2, 3), ZVector()));

    setTriple(fontNode::positionAdjust, 4, std::numeric_limits<double>::quiet_NaN(), 6);
    ::testing::internal::CaptureStderr();
    EXPECT_THAT(vectors(fontNode::manipulatorPositionsPP), ElementsAre(ZVector(1, 2, 3), ZVector()));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("The value of positionAdjust (nan)"));

    setTriple(fontNode::positionAdjust, 0, 0, 0);
    setTriple(fontNode::scaleAdjust, 1e300, 0, 0);
    ::testing::internal::CaptureStderr();
    EXPECT_THAT(vectors(fontNode::manipulatorScalesPP), ElementsAre(ZVector(), ZVector()));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("The value of scaleAdjust (1e+300)"));
}

TEST_F(FontNodeEvaluation, OddSettingsStillGiveAConsistentMesh) {
    auto expectConsistentMesh = [&] {
        const std::vector<double> totals = doubles(fontNode::vertsPerChar);
        ASSERT_FALSE(totals.empty());
        EXPECT_EQ(mesh().numVertices(), static_cast<int>(totals.back()));
    };
    // Pieces that are not hexadecimal read as 0, and bytes that are not UTF-8
    // as replacement characters.
    ASSERT_TRUE(plug(fontNode::textInput).setValue("zz 41 qq ff 42 0a 0a 20 20 "));
    ASSERT_TRUE(plug(fontNode::fontSize).setValue(0.0f));
    ASSERT_TRUE(plug(fontNode::alignmentMode).setValue(static_cast<short>(2)));
    expectConsistentMesh();

    ASSERT_TRUE(plug(fontNode::fontSize).setValue(-12.0f));
    ASSERT_TRUE(plug(fontNode::preTLDecompose).setValue(true));
    ASSERT_TRUE(plug(fontNode::deformableType).setValue(true));
    plug(fontNode::maxEdgeLength).setValue(0.0f);
    plug(fontNode::curveResolution).setValue(0);
    expectConsistentMesh();
}

} // namespace
} // namespace type
