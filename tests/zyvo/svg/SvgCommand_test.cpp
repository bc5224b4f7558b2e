#include "ProgramRunner.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using ::testing::HasSubstr;

// A 20 x 10 rectangle with a square hole.
constexpr char kFrame[] = R"svg(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 20 10">
<path fill="#c00" d="M0 0H20V10H0Z M5 2.5h5v5h-5z"/></svg>)svg";

std::vector<std::array<double, 3>> objVertices(const std::filesystem::path& file) {
    std::vector<std::array<double, 3>> vertices;
    std::istringstream lines(readFile(file));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string kind;
        fields >> kind;
        if (kind == "v") {
            std::array<double, 3>& v = vertices.emplace_back();
            fields >> v[0] >> v[1] >> v[2];
        }
    }
    return vertices;
}

std::array<double, 2> extent(const std::vector<std::array<double, 3>>& vertices, int axis) {
    std::array<double, 2> range{1e300, -1e300};
    for (const auto& v : vertices) {
        range[0] = std::min(range[0], v[axis]);
        range[1] = std::max(range[1], v[axis]);
    }
    return range;
}

TEST(SvgCommand, FlatArtworkIsWrittenAtTheAskedHeight) {
    TempFolder folder;
    const auto svg = folder.write("frame.svg", kFrame);
    const ProgramResult result =
        runZyvo({"svg", svg.string(), "--size", "5", "-o", (folder / "frame.obj").string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto vertices = objVertices(folder / "frame.obj");
    // Outer four corners and the hole's four.
    EXPECT_EQ(vertices.size(), 8u);
    EXPECT_EQ(extent(vertices, 0), (std::array<double, 2>{0.0, 10.0}));
    EXPECT_EQ(extent(vertices, 1), (std::array<double, 2>{0.0, 5.0}));
    EXPECT_EQ(extent(vertices, 2), (std::array<double, 2>{0.0, 0.0}));
}

TEST(SvgCommand, SolidOptionExtrudesTheArtwork) {
    TempFolder folder;
    const auto svg = folder.write("frame.svg", kFrame);
    const ProgramResult result =
        runZyvo({"svg", svg.string(), "--extrude", "2", "-o", (folder / "solid.obj").string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto z = extent(objVertices(folder / "solid.obj"), 2);
    EXPECT_NEAR(z[1] - z[0], 2.0, 1e-6);
}

TEST(SvgCommand, DocumentOnStandardInputIsPasted) {
    TempFolder folder;
    const auto svg = folder.write("frame.svg", kFrame);
    ProgramRun run;
    run.program = "/bin/sh";
    run.args = {"-c", std::string("exec \"") + ZYVO_PROGRAM + "\" svg - --use-artboard --size 10 -o \"" +
                          (folder / "pasted.obj").string() + "\" < \"" + svg.string() + "\""};
    const ProgramResult result = runProgram(run);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(extent(objVertices(folder / "pasted.obj"), 1), (std::array<double, 2>{0.0, 10.0}));
}

TEST(SvgCommand, UnreadableArtworkIsReportedAndNothingWritten) {
    TempFolder folder;
    const auto broken = folder.write("broken.svg", "<svg><rect width='1' height='1'></svg>");
    const auto wrongCount = folder.write("count.svg", "<svg><path d='M0 0 L1'/></svg>");
    const std::vector<std::pair<std::string, std::string>> cases{
        {(folder / "missing.svg").string(), "No SVG file at"},
        {broken.string(), "Error parsing SVG."},
        {wrongCount.string(), "Unexpected number of points for SVG path."}};
    for (const auto& [file, message] : cases) {
        const auto output = folder / "out.obj";
        const ProgramResult result = runZyvo({"svg", file, "-o", output.string()});
        EXPECT_NE(result.exitCode, 0) << file;
        EXPECT_THAT(result.err + result.out, HasSubstr(message)) << file;
        EXPECT_FALSE(std::filesystem::exists(output)) << file;
    }
}

} // namespace
