#include "SvgNodeTesting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace type::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class SvgNodeEvaluation : public SvgNodeTest {};

double maxY(const std::vector<ZPoint>& points) {
    double top = -1e300;
    for (const ZPoint& p : points)
        top = std::max(top, p.y);
    return top;
}

TEST_F(SvgNodeEvaluation, EmptyPasteTextDrawsTheSampleArtwork) {
    paste("");
    // A plus sign and thirteen pieces of frame, each a face of its own.
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 14);
    const std::vector<std::string> names = strings(svgNode::pathNames);
    ASSERT_EQ(names.size(), 14u);
    EXPECT_EQ(names.front(), "polygon0");
    EXPECT_EQ(strings(svgNode::pathNamesFromPaste), names);
    EXPECT_EQ(doubles(svgNode::vertsPerChar).front(), 12.0);
    // The drawing is 24 units high and comes out svgSize (10) high, its top at y = 10.
    const std::vector<ZPoint> points = meshPoints();
    EXPECT_DOUBLE_EQ(maxY(points), 10.0);
    ZColorArray colours;
    ASSERT_TRUE(mesh().getVertexColors(colours));
    EXPECT_NEAR(colours[0].g, 0xB7 / 255.0, 1e-6);
    EXPECT_FALSE(plug(svgNode::errorIndicator).asBool());
}

TEST_F(SvgNodeEvaluation, ArtboardScalingFollowsTheViewBoxHeight) {
    auto drawing = [](int artboard) {
        return "<svg viewBox=\"0 0 " + std::to_string(artboard) + " " + std::to_string(artboard) +
               "\"><rect x=\"0\" y=\"0\" width=\"10\" height=\"10\"/></svg>";
    };
    paste(drawing(20));
    const double artwork20 = maxY(meshPoints());
    paste(drawing(40));
    EXPECT_DOUBLE_EQ(maxY(meshPoints()), artwork20);
    EXPECT_DOUBLE_EQ(artwork20, 10.0);

    ASSERT_TRUE(plug(svgNode::useArtboard).setValue(true));
    // The rectangle is a quarter of a 40-unit artboard scaled to 10 units:
    // 2.5 units high, the artboard's top at y = 10.
    std::vector<ZPoint> points = meshPoints();
    double bottom = 1e300;
    for (const ZPoint& p : points)
        bottom = std::min(bottom, p.y);
    EXPECT_DOUBLE_EQ(maxY(points), 10.0);
    EXPECT_DOUBLE_EQ(bottom, 7.5);
}

TEST_F(SvgNodeEvaluation, CircleHasFourPointsPerResolutionStep) {
    paste(R"svg(<svg><circle cx="50" cy="50" r="50"/></svg>)svg");
    ASSERT_TRUE(plug(svgNode::curveResolution).setValue(1));
    EXPECT_EQ(doubles(svgNode::vertsPerChar), std::vector<double>{4.0});
    ASSERT_TRUE(plug(svgNode::curveResolution).setValue(4));
    EXPECT_EQ(doubles(svgNode::vertsPerChar), std::vector<double>{16.0});
}

TEST_F(SvgNodeEvaluation, OverlappingShapesAreOneZOffsetApart) {
    paste(R"svg(<svg><rect width="10" height="10"/><rect x="5" y="5" width="10" height="10"/></svg>)svg");
    ASSERT_TRUE(plug(svgNode::zOffset).setValue(0.25f));
    const std::vector<ZPoint> points = meshPoints();
    ASSERT_EQ(points.size(), 8u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(points[i].z, 0.0);
    for (std::size_t i = 4; i < 8; ++i)
        EXPECT_EQ(points[i].z, 0.25);
    const std::vector<ZVector> maxima = vectors(svgNode::characterBoundingBoxesMax);
    ASSERT_EQ(maxima.size(), 2u);
    EXPECT_EQ(maxima[1].z, 0.25);
}

TEST_F(SvgNodeEvaluation, HoleOfAShapeIsCutIntoItsFace) {
    paste(R"svg(<svg><path id="ring" d="M0 0H30V30H0Z M10 10H20V20H10Z"/></svg>)svg");
    EXPECT_EQ(strings(svgNode::pathNames), std::vector<std::string>{"ring"});
    EXPECT_EQ(ints(svgNode::holeInfo), (std::vector<int>{0, 4, 4}));
    EXPECT_EQ(mesh().numPolygons(), 1);
}

TEST_F(SvgNodeEvaluation, HoleReachingOutOfItsFaceIsReported) {
    // The inner strip starts inside the square and runs out of its bottom.
    paste(R"svg(<svg><path d="M0 0H30V30H0Z M10 10H20V40H10Z"/></svg>)svg");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 1);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                HasSubstr("Not fully contained holes are not supported."));

    paste(R"svg(<svg><path d="M0 0H30V30H0Z M10 10H20V20H10Z"/></svg>)svg");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 1);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), Not(HasSubstr("Not fully contained")));
}

struct BrokenInput {
    const char* name;
    std::string document;
    const char* message;
};

TEST_F(SvgNodeEvaluation, BrokenInputIsReportedAndLeavesTheOutputsEmpty) {
    const std::vector<BrokenInput> inputs{
        {"malformed", "<svg><rect width='1' height='1'></svg>", "Error parsing SVG."},
        {"wrongCount", "<svg><path d='M0 0 L1'/></svg>", "Unexpected number of points for SVG path."},
        {"nothingFilled", "<svg><rect fill='none' width='1' height='1'/></svg>",
         "No valid input. Check the Script Editor for more info."},
        {"flat", "<svg><line x1='0' y1='0' x2='5' y2='5'/></svg>",
         "No valid input. Check the Script Editor for more info."}};
    for (const BrokenInput& input : inputs) {
        paste("<svg><rect width='1' height='1'/></svg>");
        ASSERT_EQ(plug(svgNode::numberOfShells).asInt(), 1);
        paste(input.document);
        ::testing::internal::CaptureStderr();
        EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 0) << input.name;
        EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr(input.message)) << input.name;
        EXPECT_TRUE(plug(svgNode::errorIndicator).asBool()) << input.name;
        EXPECT_TRUE(doubles(svgNode::vertsPerChar).empty()) << input.name;
        EXPECT_EQ(mesh().numVertices(), 0) << input.name;
    }
}

TEST_F(SvgNodeEvaluation, FilesThatCannotBeReadAreReported) {
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    ASSERT_TRUE(plug(svgNode::svgFilepath).setValue(ZString(folder.filePath("missing.svg").toStdString())));
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 0);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("No SVG file found."));
    EXPECT_TRUE(plug(svgNode::errorIndicator).asBool());

    // A folder is no file either.
    ASSERT_TRUE(plug(svgNode::svgFilepath).setValue(ZString(folder.path().toStdString())));
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 0);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("No SVG file found."));

    QFile file(folder.filePath("drawing.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<svg><rect width='3' height='1'/></svg>");
    file.close();
    ASSERT_TRUE(plug(svgNode::svgFilepath).setValue(ZString(file.fileName().toStdString())));
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 1);
    EXPECT_FALSE(plug(svgNode::errorIndicator).asBool());
}

TEST_F(SvgNodeEvaluation, FiftyMegabyteFileIsRefusedWithAMessage) {
    QTemporaryDir folder;
    QFile file(folder.filePath("large.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray rect = "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\"/>\n";
    file.write("<svg>");
    file.write(rect.repeated((50 << 20) / rect.size()));
    file.write("</svg>");
    file.close();
    ASSERT_TRUE(plug(svgNode::svgFilepath).setValue(ZString(file.fileName().toStdString())));
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 0);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("SVG artwork too large"));
    EXPECT_TRUE(plug(svgNode::errorIndicator).asBool());
}

TEST_F(SvgNodeEvaluation, IssueWarningsAreShownAfterTheRead) {
    paste(R"svg(<svg width="4" height="4"><rect width="1" height="1" stroke="red"/></svg>)svg");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(plug(svgNode::numberOfShells).asInt(), 1);
    const std::string shown = ::testing::internal::GetCapturedStderr();
    const auto strokes = shown.find("Strokes not supported.");
    const auto small = shown.find("Artwork dimensions are small. There may be unexpected results.");
    const auto summary = shown.find("SVG issues: Check the Script Editor for more info.");
    ASSERT_NE(strokes, std::string::npos);
    ASSERT_NE(small, std::string::npos);
    ASSERT_NE(summary, std::string::npos);
    EXPECT_LT(strokes, small);
    EXPECT_LT(small, summary);
}

TEST_F(SvgNodeEvaluation, SettingsThatAreNoNumbersKeepTheMeshFinite) {
    paste(R"svg(<svg><rect width="10" height="10"/><circle cx="5" cy="5" r="3"/></svg>)svg");
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const ZObject* setting : {&svgNode::zOffset, &svgNode::svgSize, &svgNode::pointDistanceFilter,
                                   &svgNode::colinearAngle, &svgNode::maxEdgeLength})
        ASSERT_TRUE(plug(*setting).setValue(nan));
    ASSERT_TRUE(plug(svgNode::deformableType).setValue(true));
    ASSERT_TRUE(plug(svgNode::removeColinear).setValue(true));
    const std::vector<ZPoint> points = meshPoints();
    ASSERT_FALSE(points.empty());
    for (const ZPoint& p : points)
        EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z));
}

TEST_F(SvgNodeEvaluation, LegacyModeKeepsUnfilledShapes) {
    paste(R"svg(<svg><rect width="1" height="1"/><rect y="2" fill="none" width="1" height="1"/></svg>)svg");
    EXPECT_EQ(mesh().numPolygons(), 1);
    ASSERT_TRUE(plug(svgNode::legacy2018).setValue(true));
    EXPECT_EQ(mesh().numPolygons(), 2);
}

} // namespace
} // namespace type::testing
