#include "plugin/TypeMessages.h"
#include "svg/SvgReader.h"

#include <QFile>
#include <gtest/gtest.h>

namespace type {
namespace {

SvgReadResult read(const char* body, SvgReadSettings settings = {}) {
    return readSvg(QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" height=\"100\">") +
                       body + "</svg>",
                   settings);
}

TEST(SvgReader, UnfilledAndHiddenShapesAreDroppedOutsideLegacyMode) {
    const char* body = R"svg(<rect id="kept" width="1" height="1"/>
        <rect id="unfilled" fill="none" stroke="red" width="1" height="1"/>
        <rect id="invisible" visibility="hidden" width="1" height="1"/>
        <rect id="transparent" opacity="0" width="1" height="1"/>
        <rect id="undisplayed" style="display:none" width="1" height="1"/>
        <g fill="none"><rect id="inUnfilledGroup" width="1" height="1"/></g>
        <g style="visibility:hidden"><rect id="inHiddenGroup" width="1" height="1"/></g>)svg";

    const SvgReadResult current = read(body);
    ASSERT_EQ(current.status, SvgReadStatus::ok);
    ASSERT_EQ(current.artwork.shapes.size(), 1u);
    EXPECT_EQ(current.artwork.shapes[0].id, "kept");
    // Hidden shapes go silently; the stroke is reported.
    EXPECT_TRUE(current.artwork.issues.hasStrokes);
    EXPECT_FALSE(current.artwork.issues.hasHidden);

    const SvgReadResult legacy = read(body, {4, true});
    EXPECT_EQ(legacy.artwork.shapes.size(), 7u);
}

TEST(SvgReader, StrokedShapeKeepsItsFill) {
    const SvgReadResult result = read(R"svg(<circle cx="5" cy="5" r="2" stroke-width="3"/>)svg");
    ASSERT_EQ(result.artwork.shapes.size(), 1u);
    EXPECT_EQ(result.artwork.shapes[0].outlines[0].size(), 16u);
    EXPECT_TRUE(result.artwork.issues.hasStrokes);
}

TEST(SvgReader, SmallArtworkWarningStartsBelowFiveUnits) {
    auto small = [](const char* width) {
        return readSvg(QByteArray("<svg width=\"") + width + "\" height=\"10\"/>", {}).artwork.issues.isSmall;
    };
    EXPECT_TRUE(small("4"));
    EXPECT_TRUE(small("4.99px"));
    EXPECT_FALSE(small("5"));
}

TEST(SvgReader, GroupTransformsApplyOutermostLast) {
    const SvgReadResult result = read(R"svg(<g transform="translate(10 0)"><g transform="scale(2)">
        <polygon points="1,1 2,1 2,2" transform="rotate(90)"/></g></g>)svg");
    ASSERT_EQ(result.artwork.shapes.size(), 1u);
    const Contour& outline = result.artwork.shapes[0].outlines[0];
    // rotate (1,1) by 90 degrees to (-1,1), scale to (-2,2), translate to (8,2).
    EXPECT_NEAR(outline[0].x, 8.0, 1e-6);
    EXPECT_NEAR(outline[0].y, 2.0, 1e-6);
    EXPECT_NEAR(outline[1].x, 8.0, 1e-6);
    EXPECT_NEAR(outline[1].y, 4.0, 1e-6);
}

TEST(SvgReader, ListedTransformsApplyRightToLeft) {
    const SvgReadResult result =
        read(R"svg(<rect width="1" height="1" transform="translate(5,0) scale(3) matrix(1 0 0 1 1 1)"/>)svg");
    ASSERT_EQ(result.artwork.shapes.size(), 1u);
    EXPECT_EQ(result.artwork.shapes[0].outlines[0][0], (Point2{8.0, 3.0}));
}

TEST(SvgReader, FillComesFromAttributeStyleClassOrGroup) {
    const SvgReadResult result = read(R"svg(<style>.st0{fill:#13B713;} .a, .b { fill: rgb(0, 0, 255) }</style>
        <rect id="attribute" fill="#fff" width="1" height="1"/>
        <rect id="style" style="fill:lime" width="1" height="1"/>
        <rect id="class" class="st0" width="1" height="1"/>
        <rect id="secondClass" class="x b" width="1" height="1"/>
        <g fill="red"><rect id="group" width="1" height="1"/></g>
        <rect id="unknown" fill="url(#gradient)" width="1" height="1"/>)svg");
    ASSERT_EQ(result.artwork.shapes.size(), 6u);
    const auto fill = [&](std::size_t i) {
        return result.artwork.shapes[i].fill;
    };
    EXPECT_EQ(fill(0), (Colour{1, 1, 1, 1}));
    EXPECT_EQ(fill(1), (Colour{0, 1, 0, 1}));
    EXPECT_EQ(fill(2), (Colour{0x13 / 255.0f, 0xB7 / 255.0f, 0x13 / 255.0f, 1}));
    EXPECT_EQ(fill(3), (Colour{0, 0, 1, 1}));
    EXPECT_EQ(fill(4), (Colour{1, 0, 0, 1}));
    EXPECT_FALSE(fill(5).has_value());
}

TEST(SvgReader, ViewBoxOfTheSvgElementIsKept) {
    const SvgReadResult result =
        readSvg(R"svg(<svg viewBox="0 0 38 24"><svg viewBox="1,2,3,4"/></svg>)svg", {});
    ASSERT_TRUE(result.artwork.viewBox.has_value());
    EXPECT_EQ(*result.artwork.viewBox, (std::array<double, 4>{0, 0, 38, 24}));
}

TEST(SvgReader, BrokenDocumentsFailWithTheirReason) {
    EXPECT_EQ(readSvg("<svg><path d=\"M0 0 L1 1\"></svg>", {}).status, SvgReadStatus::parseError);
    EXPECT_EQ(readSvg("", {}).status, SvgReadStatus::parseError);
    const SvgReadResult wrongCount = read(R"svg(<rect width="1" height="1"/><path d="M0 0 L10"/>)svg");
    EXPECT_EQ(wrongCount.status, SvgReadStatus::pathCountError);
    EXPECT_TRUE(wrongCount.artwork.shapes.empty());
}

TEST(SvgReader, NonFiniteCoordinatesLeaveNoOutline) {
    const SvgReadResult result = read(R"svg(<rect x="nan" width="1" height="1"/>
        <polygon points="0,0 9e9e9,0 1,1"/><rect width="1e308" height="1" transform="scale(10)"/>
        <rect width="1" height="1"/>)svg");
    ASSERT_EQ(result.status, SvgReadStatus::ok);
    std::size_t outlines = 0;
    for (const SvgShape& shape : result.artwork.shapes)
        outlines += shape.outlines.size();
    EXPECT_EQ(outlines, 1u);
}

TEST(SvgReader, PolygonWithoutPointsLeavesNoEmptyOutline) {
    const SvgReadResult result = read("<polygon/><polyline points=\"\"/><path d=\"\"/>");
    ASSERT_EQ(result.status, SvgReadStatus::ok);
    for (const SvgShape& shape : result.artwork.shapes)
        EXPECT_TRUE(shape.outlines.empty()) << shape.element;
}

QByteArray nestedGroups(int depth) {
    QByteArray document = "<svg>";
    for (int i = 0; i < depth; ++i)
        document += "<g transform=\"translate(1 0)\">";
    document += "<rect width=\"1\" height=\"1\"/>";
    for (int i = 0; i < depth; ++i)
        document += "</g>";
    return document + "</svg>";
}

TEST(SvgReader, NestingIsReadUpToItsLimitAndRefusedPastIt) {
    // The svg element and the rect count as levels too.
    const SvgReadResult deepest = readSvg(nestedGroups(svgLimits::kMaxDepth - 2), {});
    ASSERT_EQ(deepest.status, SvgReadStatus::ok);
    EXPECT_EQ(deepest.artwork.shapes[0].outlines[0][0], (Point2{svgLimits::kMaxDepth - 2.0, 0.0}));
    EXPECT_EQ(readSvg(nestedGroups(svgLimits::kMaxDepth - 1), {}).status, SvgReadStatus::tooDeep);
}

TEST(SvgReader, MillionLevelsOfNestingAreRefusedWithoutRunningOutOfStack) {
    EXPECT_EQ(readSvg(QByteArray("<svg>") + QByteArray("<g>").repeated(1000000), {}).status,
              SvgReadStatus::tooDeep);
}

TEST(SvgReader, ArtworkPastThePointLimitIsRefused) {
    QByteArray document = "<svg>";
    const QByteArray rect = "<rect width=\"1\" height=\"1\"/>";
    document += rect.repeated(static_cast<int>(svgLimits::kMaxPoints / 4));
    EXPECT_EQ(readSvg(document + "</svg>", {}).status, SvgReadStatus::ok);
    EXPECT_EQ(readSvg(document + rect + "</svg>", {}).status, SvgReadStatus::tooLarge);

    const QByteArray longPath = "<svg><path d=\"M0 0" + QByteArray(" L1 1").repeated(2 << 20) + "\"/></svg>";
    EXPECT_EQ(readSvg(longPath, {}).status, SvgReadStatus::tooLarge);
    // Many contours in one shape would make hole nesting quadratic.
    const QByteArray manySubpaths =
        "<svg><path d=\"" + QByteArray("M0 0 L1 0 L1 1z ").repeated(20000) + "\"/></svg>";
    EXPECT_EQ(readSvg(manySubpaths, {}).status, SvgReadStatus::tooLarge);
}

TEST(SvgIssues, WarningsComeInTheirFixedOrderWithASummary) {
    const SvgReadResult result = read(R"svg(<image/><rect width="1" height="1" opacity="0.5" stroke="red"
        fill-rule="evenodd"/>)svg");
    const SvgIssues& issues = result.artwork.issues;
    EXPECT_TRUE(issues.hasImages && issues.hasOpacity && issues.hasStrokes && issues.hasEvenOdd);

    QFile golden(ZYVO_TEST_DATA_DIR "/svg/issue_warnings.txt");
    ASSERT_TRUE(golden.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList expected = QString::fromUtf8(golden.readAll()).split('\n', Qt::SkipEmptyParts);
    QStringList shown;
    for (const ZStringResourceId* warning : issueWarnings({true, true, true, true, true, true}))
        shown << QString::fromUtf8(warning->key().asChar());
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(issueWarnings({false, true, false, false, false, false}).size(), 1u);
}

} // namespace
} // namespace type
