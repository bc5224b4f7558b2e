#include "ProgramRunner.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>

namespace {

namespace fs = std::filesystem;

// A 4 x 4 square with a 2 x 2 square hole (8 triangles), under a transform
// whose translateX is keyed from 0 at frame 1 to 10 at frame 3.
const char* const kPlate = R"(
createNode transform -n plate;
createNode mesh -n plateShape -p plate;
setAttr -type "mesh" plateShape.inMesh
    8  -2 -2 0  2 -2 0  2 2 0  -2 2 0  -1 -1 0  1 -1 0  1 1 0  -1 1 0
    1  2  4 0 1 2 3  4 4 7 6 5;
setKeyframe -t 1 -v 0 -at translateX plate;
setKeyframe -t 3 -v 10 -at translateX plate;
)";

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::uint32_t le32(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

std::uint32_t be32(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

// The x of every vertex of an OBJ file.
std::vector<double> objXs(const std::string& text) {
    std::vector<double> xs;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("v ", 0) == 0)
            xs.push_back(std::stod(line.substr(2)));
    return xs;
}

std::size_t countLines(const std::string& text, const std::string& prefix) {
    std::size_t count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += line.rfind(prefix, 0) == 0;
    return count;
}

class Export : public ::testing::Test {
protected:
    ProgramResult exportPlate(std::vector<std::string> args) {
        args.insert(args.begin(), {"export", "plate"});
        args.insert(args.end(), {"--scene", m_scene.string()});
        return runZyvo(args);
    }

    TempFolder m_folder;
    fs::path m_scene = m_folder.write("plate.zys", kPlate);
};

TEST_F(Export, EveryFormatIsWrittenAndReadsBack) {
    const fs::path out = m_folder / "deep/er";
    const ProgramResult result =
        exportPlate({(out / "a.obj").string(), (out / "a.stl").string(), (out / "a.glb").string(),
                     (out / "a.png").string(), "--frame", "1", "--width", "64", "--height", "32"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(contains(result.out, "Wrote " + (out / "a.glb").string()));

    const std::string obj = readFile(out / "a.obj");
    EXPECT_EQ(countLines(obj, "v "), 8u);
    EXPECT_EQ(countLines(obj, "f "), 8u) << "the hole stays open: 8 triangles, not 2";

    const std::string stl = readFile(out / "a.stl");
    ASSERT_EQ(stl.size(), 84u + 50u * 8u);
    EXPECT_EQ(le32(stl, 80), 8u);

    const std::string glb = readFile(out / "a.glb");
    ASSERT_GE(glb.size(), 20u);
    EXPECT_EQ(glb.substr(0, 4), "glTF");
    EXPECT_EQ(le32(glb, 4), 2u);
    EXPECT_EQ(le32(glb, 8), glb.size());
    EXPECT_EQ(glb.substr(16, 4), "JSON");
    EXPECT_TRUE(contains(glb.substr(20, le32(glb, 12)), "\"meshes\""));

    const std::string png = readFile(out / "a.png");
    ASSERT_GE(png.size(), 24u);
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(png.substr(12, 4), "IHDR");
    EXPECT_EQ(be32(png, 16), 64u);
    EXPECT_EQ(be32(png, 20), 32u);
}

TEST_F(Export, EachFrameIsEvaluatedIntoItsOwnFile) {
    const ProgramResult hashes = exportPlate({(m_folder / "f.####.obj").string(), "--frames", "1:3"});
    ASSERT_EQ(hashes.exitCode, 0) << hashes.err;
    EXPECT_TRUE(contains(hashes.err, "(3/3)")) << "progress: " << hashes.err;
    for (const auto& [file, shift] :
         {std::pair{"f.0001.obj", 0.0}, {"f.0002.obj", 5.0}, {"f.0003.obj", 10.0}}) {
        const auto xs = objXs(readFile(m_folder / file));
        ASSERT_EQ(xs.size(), 8u) << file;
        EXPECT_DOUBLE_EQ(*std::min_element(xs.begin(), xs.end()), -2.0 + shift) << file;
    }

    const ProgramResult stepped = exportPlate({(m_folder / "s.%02d.stl").string(), "--frames", "8:10:2"});
    ASSERT_EQ(stepped.exitCode, 0) << stepped.err;
    EXPECT_TRUE(fs::exists(m_folder / "s.08.stl") && fs::exists(m_folder / "s.10.stl"));
    EXPECT_FALSE(fs::exists(m_folder / "s.09.stl"));

    const ProgramResult single = exportPlate({(m_folder / "one.###.obj").string(), "--frame", "3"});
    ASSERT_EQ(single.exitCode, 0) << single.err;
    EXPECT_DOUBLE_EQ(objXs(readFile(m_folder / "one.003.obj")).front(), 8.0);
}

TEST_F(Export, RefusalsWriteNothing) {
    const fs::path file = m_folder / "never.obj";
    struct Case {
        std::vector<std::string> args;
        std::string says;
    };
    const std::vector<Case> cases{
        {{"export", "nothing", file.string(), "--scene", m_scene.string()}, "No node is called \"nothing\""},
        {{"export", "plate", file.string(), (m_folder / "a.fbx").string(), "--scene", m_scene.string()},
         ".fbx"},
        {{"export", "plate", file.string(), "--frames", "1:2", "--scene", m_scene.string()},
         "frame number pattern"},
        {{"export", "plate", (m_folder / "p.#.obj").string(), "--scene", m_scene.string()}, "whole frame"},
        {{"export", "plate", file.string(), "--scene", m_folder.write("broken.zys", "nonsense;").string()},
         "nothing was exported"},
    };
    for (const Case& c : cases) {
        const ProgramResult result = runZyvo(c.args);
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(c.args) << "\n" << result.err;
        EXPECT_TRUE(contains(result.err, c.says)) << testing::PrintToString(c.args) << "\n" << result.err;
        EXPECT_FALSE(fs::exists(file)) << testing::PrintToString(c.args);
    }
}

TEST_F(Export, UpperCaseExtensionsAreKnown) {
    const ProgramResult result = exportPlate({(m_folder / "A.OBJ").string(), (m_folder / "A.Glb").string(),
                                              (m_folder / "A.STL").string(), "--frame", "1"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(countLines(readFile(m_folder / "A.OBJ"), "f "), 8u);
    EXPECT_EQ(readFile(m_folder / "A.Glb").substr(0, 4), "glTF");
    EXPECT_EQ(readFile(m_folder / "A.STL").size(), 84u + 50u * 8u);
}

TEST_F(Export, FramePatternsTooWideAreRefusedWithoutBuildingTheirNames) {
    // The last is as long as one word of a command line may be.
    for (const std::string& pattern :
         std::vector<std::string>{"f.%999999999d.obj", "f.%99999999999999999999d.obj", "f.###########.obj",
                                  std::string(100000, '#') + ".obj"}) {
        const ProgramResult result = exportPlate({(m_folder / pattern).string(), "--frame", "1"});
        EXPECT_EQ(result.exitCode, 1) << pattern.substr(0, 40) << "\n" << result.err.substr(0, 400);
        EXPECT_TRUE(contains(result.err, "too wide: pad to at most 10 digits")) << result.err.substr(0, 400);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.path()), fs::directory_iterator()), 1)
        << "only the scene";
    const ProgramResult widest = exportPlate({(m_folder / "w.%010d.obj").string(), "--frame", "1"});
    ASSERT_EQ(widest.exitCode, 0) << widest.err;
    EXPECT_TRUE(fs::exists(m_folder / "w.0000000001.obj"));
}

TEST_F(Export, OneFileNamedTwiceIsRefused) {
    const std::string file = (m_folder / "twice.obj").string();
    for (const std::vector<std::string>& outputs :
         {std::vector<std::string>{file, file, "--frame", "1"},
          {file, (m_folder / "sub/../twice.obj").string(), "--frame", "1"},
          {(m_folder / "f.#.obj").string(), (m_folder / "f.%d.obj").string(), "--frames", "1:2"},
          // The patterns differ until the frame numbers outgrow the narrower one.
          {(m_folder / "g.#.obj").string(), (m_folder / "g.##.obj").string(), "--frames", "8:10"}}) {
        const ProgramResult result = exportPlate(outputs);
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(outputs) << "\n" << result.err;
        EXPECT_TRUE(contains(result.err, "is given twice")) << result.err;
    }
    // Each OBJ file has its material library beside it.
    const ProgramResult library =
        exportPlate({(m_folder / "lib.obj").string(), (m_folder / "lib.OBJ").string(), "--frame", "1"});
    EXPECT_EQ(library.exitCode, 1);
    EXPECT_TRUE(contains(library.err, "would both write " + (m_folder / "lib.mtl").string())) << library.err;
    for (const char* never :
         {"twice.obj", "f.1.obj", "g.8.obj", "g.08.obj", "g.10.obj", "lib.obj", "lib.mtl"})
        EXPECT_FALSE(fs::exists(m_folder / never)) << never;
}

} // namespace
