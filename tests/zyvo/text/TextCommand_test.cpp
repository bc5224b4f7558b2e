#include "ProgramRunner.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>
#include <set>
#include <sstream>
#include <tiny_gltf.h>

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct ObjMesh {
    std::vector<std::array<double, 3>> vertices;
    std::size_t triangles = 0;
};

ObjMesh readObj(const std::filesystem::path& file) {
    ObjMesh mesh;
    std::istringstream lines(readFile(file));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string kind;
        fields >> kind;
        if (kind == "v") {
            std::array<double, 3>& v = mesh.vertices.emplace_back();
            fields >> v[0] >> v[1] >> v[2];
        } else if (kind == "f") {
            ++mesh.triangles;
        }
    }
    return mesh;
}

std::array<double, 2> extent(const ObjMesh& mesh, int axis) {
    std::array<double, 2> range{1e300, -1e300};
    for (const auto& v : mesh.vertices) {
        range[0] = std::min(range[0], v[axis]);
        range[1] = std::max(range[1], v[axis]);
    }
    return range;
}

// Pixels that differ from the top-left corner, which shows the background.
std::size_t drawnPixels(const std::filesystem::path& file) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&png, file.string().c_str())) {
        ADD_FAILURE() << png.message;
        return 0;
    }
    png.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> rgb(PNG_IMAGE_SIZE(png));
    EXPECT_TRUE(png_image_finish_read(&png, nullptr, rgb.data(), 0, nullptr)) << png.message;
    std::size_t drawn = 0;
    for (std::size_t i = 0; i + 2 < rgb.size(); i += 3)
        drawn += !std::equal(rgb.begin() + static_cast<long>(i), rgb.begin() + static_cast<long>(i) + 3,
                             rgb.begin());
    return drawn;
}

ProgramResult text(const std::vector<std::string>& args) {
    std::vector<std::string> all{"text"};
    all.insert(all.end(), args.begin(), args.end());
    return runZyvo(all);
}

TEST(TextCommand, WritesTheFlatTextInEveryFormat) {
    TempFolder folder;
    const ProgramResult run =
        text({"Hi O", "--flat", "--font", "DejaVu Sans", "--style", "Book", "-o", folder / "t.obj", "-o",
              folder / "t.stl", "-o", folder / "t.glb", "--preview", folder / "t.png"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("t.glb"));

    const ObjMesh obj = readObj(folder / "t.obj");
    ASSERT_GT(obj.triangles, 0u);
    EXPECT_EQ(extent(obj, 2), (std::array<double, 2>{0.0, 0.0})) << "the text is flat";
    EXPECT_NEAR(extent(obj, 1)[1], 20.0 * 0.73 / 1.164, 1.0) << "a cap height at the default size";

    const std::string stl = readFile(folder / "t.stl");
    ASSERT_GE(stl.size(), 84u);
    std::uint32_t stlTriangles = 0;
    std::memcpy(&stlTriangles, stl.data() + 80, 4);
    EXPECT_EQ(stlTriangles, obj.triangles);
    EXPECT_EQ(stl.size(), 84u + 50u * stlTriangles);

    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    ASSERT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, (folder / "t.glb").string())) << error;
    std::size_t indices = 0;
    for (const tinygltf::Mesh& mesh : model.meshes)
        for (const tinygltf::Primitive& primitive : mesh.primitives)
            indices += model.accessors.at(static_cast<std::size_t>(primitive.indices)).count;
    EXPECT_EQ(indices, 3 * obj.triangles);

    EXPECT_GT(drawnPixels(folder / "t.png"), 1000u) << "the preview shows the text";
}

tinygltf::Model readGlb(const std::filesystem::path& file) {
    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    EXPECT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, file.string())) << error;
    EXPECT_EQ(warning, "");
    return model;
}

TEST(TextCommand, WritesTheSolidWithItsThreeMaterials) {
    TempFolder folder;
    const ProgramResult run = text({"B8&gQ%Aaeo", "--extrude", "5", "--bevel", "0.5", "--back-bevel", "-o",
                                    folder / "s.glb", "-o", folder / "s.obj", "--preview", folder / "s.png"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_THAT(run.err, Not(HasSubstr("// ")));

    const ObjMesh obj = readObj(folder / "s.obj");
    const std::array<double, 2> depth = extent(obj, 2);
    EXPECT_NEAR(depth[1] - depth[0], 5.0, 1e-3) << "the solid is as deep as asked";

    const tinygltf::Model model = readGlb(folder / "s.glb");
    ASSERT_EQ(model.materials.size(), 3u) << "caps, bevels and walls";
    std::set<std::vector<double>> colours;
    for (const tinygltf::Material& material : model.materials)
        colours.insert(material.pbrMetallicRoughness.baseColorFactor);
    EXPECT_EQ(colours.size(), 3u) << "each part its own colour";
    std::set<int> used;
    for (const tinygltf::Mesh& mesh : model.meshes)
        for (const tinygltf::Primitive& primitive : mesh.primitives)
            used.insert(primitive.material);
    EXPECT_EQ(used, (std::set<int>{0, 1, 2})) << "every material holds faces";
    EXPECT_GT(drawnPixels(folder / "s.png"), 1000u) << "the preview shows the solid";
}

TEST(TextCommand, SolidOptionsReachTheExtrusion) {
    TempFolder folder;
    auto solid = [&](const std::string& name, std::vector<std::string> settings) {
        std::vector<std::string> args{"HI", "--font", "DejaVu Sans", "--style", "Book", "-o", folder / name};
        args.insert(args.end(), settings.begin(), settings.end());
        const ProgramResult run = text(args);
        EXPECT_EQ(run.exitCode, 0) << name << ": " << run.err;
        return readObj(folder / name);
    };
    const ObjMesh plain = solid("plain.obj", {});
    const ObjMesh deep = solid("deep.obj", {"--extrude", "7"});
    EXPECT_NEAR(extent(deep, 2)[1] - extent(deep, 2)[0], 7.0, 1e-3);
    EXPECT_EQ(deep.triangles, plain.triangles) << "depth only moves points";
    EXPECT_LT(solid("one.obj", {"--extrude-divisions", "1"}).triangles, plain.triangles);
    EXPECT_LT(solid("open.obj", {"--no-caps"}).triangles, plain.triangles);
    const ObjMesh bevelled = solid("bevel.obj", {"--bevel", "0.3", "--bevel-divisions", "2"});
    EXPECT_GT(bevelled.triangles, plain.triangles);
    for (const char* style : {"inner", "Outer"})
        EXPECT_GT(solid(std::string(style) + ".obj", {"--bevel", "0.3", "--bevel-style", style}).triangles,
                  plain.triangles)
            << style;
    for (const char* mode : {"normals", "distance-field"})
        EXPECT_EQ(solid(std::string(mode) + ".obj", {"--bevel", "0.3", "--offset-mode", mode}).triangles,
                  solid("default-mode.obj", {"--bevel", "0.3"}).triangles)
            << mode;

    const ProgramResult style = text({"HI", "--bevel-style", "round", "-o", folder / "x.obj"});
    EXPECT_EQ(style.exitCode, 2);
    EXPECT_THAT(style.err, HasSubstr("outer or inner"));
    const ProgramResult mode = text({"HI", "--offset-mode", "grid", "-o", folder / "x.obj"});
    EXPECT_EQ(mode.exitCode, 2);
    EXPECT_THAT(mode.err, HasSubstr("distance-field or normals"));
    const ProgramResult divisions = text({"HI", "--bevel-divisions", "0", "-o", folder / "x.obj"});
    EXPECT_EQ(divisions.exitCode, 2);
    EXPECT_THAT(divisions.err, HasSubstr("--bevel-divisions"));
    const ProgramResult flat = text({"HI", "--flat", "--back-bevel", "-o", folder / "x.obj"});
    EXPECT_EQ(flat.exitCode, 2) << "the flat text has no bevel";
}

TEST(TextCommand, SettingsReachTheTypeNode) {
    TempFolder folder;
    auto lettersAt = [&](const std::string& name, std::vector<std::string> settings) {
        std::vector<std::string> args{"HI", "--font", "DejaVu Sans", "--style", "Book", "-o", folder / name};
        args.insert(args.end(), settings.begin(), settings.end());
        const ProgramResult run = text(args);
        EXPECT_EQ(run.exitCode, 0) << run.err;
        return readObj(folder / name);
    };
    const ObjMesh plain = lettersAt("plain.obj", {});
    const ObjMesh large = lettersAt("large.obj", {"--size", "40"});
    EXPECT_NEAR(extent(large, 1)[1], 2.0 * extent(plain, 1)[1], 1e-3);
    const ObjMesh spaced = lettersAt("spaced.obj", {"--tracking", "50"});
    EXPECT_GT(extent(spaced, 0)[1], extent(plain, 0)[1] + 1.0);
    // Right alignment moves the line left by its width.
    const ObjMesh right = lettersAt("right.obj", {"--align", "right"});
    EXPECT_NEAR(extent(right, 0)[1], extent(plain, 0)[0], 1e-3);
    const ObjMesh fine = lettersAt("fine.obj", {"--curve-resolution", "1"});
    EXPECT_EQ(fine.vertices.size(), plain.vertices.size()) << "H and I have no curves";
}

TEST(TextCommand, WithoutAStringWritesTheDefaultText) {
    TempFolder folder;
    const ProgramResult byDefault = text({"-o", folder / "default.obj"});
    ASSERT_EQ(byDefault.exitCode, 0) << byDefault.err;
    const ProgramResult spelledOut = text({"3D Type", "-o", folder / "spelled.obj"});
    ASSERT_EQ(spelledOut.exitCode, 0) << spelledOut.err;
    const ObjMesh byDefaultMesh = readObj(folder / "default.obj");
    const ObjMesh spelledOutMesh = readObj(folder / "spelled.obj");
    EXPECT_GT(byDefaultMesh.triangles, 0u);
    EXPECT_EQ(byDefaultMesh.triangles, spelledOutMesh.triangles);
    EXPECT_TRUE(byDefaultMesh.vertices == spelledOutMesh.vertices);
}

TEST(TextCommand, BadRequestsAreExplained) {
    TempFolder folder;
    const ProgramResult wrongFormat = text({"A", "-o", folder / "a.txt"});
    EXPECT_NE(wrongFormat.exitCode, 0);
    EXPECT_THAT(wrongFormat.err, HasSubstr("use .obj, .stl or .glb"));

    const ProgramResult wrongPreview = text({"A", "-o", folder / "a.obj", "--preview", folder / "a.jpg"});
    EXPECT_NE(wrongPreview.exitCode, 0);
    EXPECT_THAT(wrongPreview.err, HasSubstr(".png"));

    const ProgramResult alignment = text({"A", "--align", "middle", "-o", folder / "a.obj"});
    EXPECT_EQ(alignment.exitCode, 2);
    EXPECT_THAT(alignment.err, HasSubstr("middle"));
    EXPECT_EQ(text({"A", "--size", "-3", "-o", folder / "a.obj"}).exitCode, 2);
    EXPECT_EQ(text({"A"}).exitCode, 2) << "an output is required";

    // A missing font is reported, and the text is still drawn in the default font.
    const ProgramResult missing = text({"A", "--font", "No Such Family", "-o", folder / "missing.obj"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_THAT(missing.err, HasSubstr("The current font (No Such Family) is missing"));
    EXPECT_GT(readObj(folder / "missing.obj").triangles, 0u);

    const ProgramResult blank = text({" ", "-o", folder / "blank.obj"});
    EXPECT_EQ(blank.exitCode, 1);
    EXPECT_THAT(blank.err, HasSubstr("has no visible character"));
    EXPECT_FALSE(std::filesystem::exists(folder / "blank.obj"));
}

// The same mesh, vertex for vertex.
bool sameMesh(const ObjMesh& a, const ObjMesh& b) {
    return a.triangles == b.triangles && a.vertices == b.vertices;
}

TEST(TextCommand, AFamilyWithoutAStyleGetsItsRegularFace) {
    TempFolder folder;
    const ProgramResult unstyled = text({"Ag", "--font", "DejaVu Sans", "-o", folder / "unstyled.obj"});
    ASSERT_EQ(unstyled.exitCode, 0) << unstyled.err;
    EXPECT_THAT(unstyled.err, Not(HasSubstr("// ")));
    ASSERT_EQ(text({"Ag", "--font", "DejaVu Sans", "--style", "Book", "-o", folder / "book.obj"}).exitCode,
              0);
    ASSERT_EQ(text({"Ag", "--font", "DejaVu Sans", "--style", "Bold", "-o", folder / "bold.obj"}).exitCode,
              0);
    const ObjMesh book = readObj(folder / "book.obj");
    EXPECT_TRUE(sameMesh(readObj(folder / "unstyled.obj"), book));
    EXPECT_FALSE(sameMesh(readObj(folder / "bold.obj"), book)) << "the styles are told apart";
}

TEST(TextCommand, AStyleTheFamilyLacksIsAWarningListingItsStyles) {
    TempFolder folder;
    ASSERT_EQ(text({"Ag", "--font", "DejaVu Sans", "--style", "Book", "-o", folder / "book.obj"}).exitCode,
              0);
    const ObjMesh book = readObj(folder / "book.obj");
    for (const char* style : {"Regular", "Foo"}) {
        const std::string file = folder / (std::string(style) + ".obj");
        const ProgramResult run = text({"Ag", "--font", "DejaVu Sans", "--style", style, "-o", file});
        EXPECT_EQ(run.exitCode, 0) << run.err;
        EXPECT_THAT(run.err, HasSubstr("// Warning: The font family \"DejaVu Sans\" has no style \"" +
                                       std::string(style) + "\"; its styles are "));
        EXPECT_THAT(run.err, HasSubstr("Bold"));
        EXPECT_THAT(run.err, HasSubstr("Using Book."));
        EXPECT_TRUE(sameMesh(readObj(file), book)) << style;
    }
    const ProgramResult lowerCase =
        text({"Ag", "--font", "DejaVu Sans", "--style", "book", "-o", folder / "lower.obj"});
    EXPECT_THAT(lowerCase.err, Not(HasSubstr("// ")));
    EXPECT_TRUE(sameMesh(readObj(folder / "lower.obj"), book));
}

TEST(TextCommand, EachOutputFlagTakesOneFileSoTheTextStaysTheText) {
    TempFolder folder;
    const ProgramResult run = text({"--font", "DejaVu Sans", "-o", folder / "after.obj", "Hello"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    ASSERT_EQ(text({"Hello", "--font", "DejaVu Sans", "-o", folder / "before.obj"}).exitCode, 0);
    EXPECT_TRUE(sameMesh(readObj(folder / "after.obj"), readObj(folder / "before.obj")));
    EXPECT_EQ(text({"-o", folder / "a.obj", folder / "b.obj", "Hello"}).exitCode, 2)
        << "two words after -o are no longer two files";
}

TEST(TextCommand, FontsAreListedFamilyByFamily) {
    const ProgramResult listed = runZyvo({"--list-fonts"});
    ASSERT_EQ(listed.exitCode, 0) << listed.err;
    EXPECT_THAT(listed.err, Not(HasSubstr("// ")));
    EXPECT_THAT(listed.out, HasSubstr("\nLiberation Serif: "));
    std::istringstream lines("\n" + listed.out);
    std::size_t dejaVuSans = 0;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("DejaVu Sans: ", 0) == 0) {
            ++dejaVuSans;
            EXPECT_THAT(line, HasSubstr("Book"));
            EXPECT_THAT(line, HasSubstr("Bold"));
        }
    EXPECT_EQ(dejaVuSans, 1u) << "one line a family:\n" << listed.out;
    const ProgramResult fromText = text({"--list-fonts"});
    EXPECT_EQ(fromText.exitCode, 0) << fromText.err;
    EXPECT_EQ(fromText.out, listed.out);
}

TEST(TextCommand, NumbersAreRefusedWhereTheyEnterNamingTheOption) {
    TempFolder folder;
    for (const auto& [option, value] :
         std::vector<std::pair<std::string, std::string>>{{"--size", "nan"},
                                                          {"--size", "inf"},
                                                          {"--size", "1e39"},
                                                          {"--size", "0"},
                                                          {"--size", "-3"},
                                                          {"--kerning", "nan"},
                                                          {"--kerning", "1e39"},
                                                          {"--tracking", "-inf"},
                                                          {"--leading", "nan"},
                                                          {"--space-width", "1e300"},
                                                          {"--curve-resolution", "0"},
                                                          {"--curve-resolution", "2.5"},
                                                          {"--curve-resolution", "nan"}}) {
        const ProgramResult run = text({"A", option, value, "-o", folder / "a.obj"});
        EXPECT_EQ(run.exitCode, 2) << option << " " << value << "\n" << run.err;
        EXPECT_THAT(run.err, HasSubstr(option + ": expected a "));
        EXPECT_THAT(run.err, HasSubstr(", got " + value));
        EXPECT_LT(run.err.size(), 200u) << "a bound a reader can read:\n" << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "a.obj"));
    EXPECT_THAT(text({"A", "--size", "0", "-o", folder / "a.obj"}).err,
                HasSubstr("--size: expected a number from 0.001 to 100000, got 0"));
}

// The alignments and the curve-resolution bounds are the type node's own,
// learnt from the node once the plug-in is loaded: refused values are still
// usage errors naming the option, and nothing is written.
TEST(TextCommand, AlignmentsAndCurveResolutionsAreTheTypeNodesOwn) {
    TempFolder folder;
    auto widthOf = [&](const std::string& name, const std::string& alignment) {
        const ProgramResult run = text({"HI", "--align", alignment, "-o", folder / name});
        EXPECT_EQ(run.exitCode, 0) << alignment << "\n" << run.err;
        return extent(readObj(folder / name), 0);
    };
    const auto left = widthOf("left.obj", "Left");
    const auto centre = widthOf("centre.obj", "CENTRE");
    EXPECT_NEAR(centre[0], left[0] - (left[1] - left[0]) / 2, 1e-3) << "centred about the origin";
    EXPECT_EQ(widthOf("center.obj", "center"), centre) << "the American spelling names the same alignment";

    const ProgramResult middle = text({"HI", "--align", "middle", "-o", folder / "middle.obj"});
    EXPECT_EQ(middle.exitCode, 2);
    EXPECT_THAT(middle.err, HasSubstr("--align: expected left, centre or right, got middle"));
    for (const char* resolution : {"0", "101", "2147483647"}) {
        const ProgramResult run = text({"HI", "--curve-resolution", resolution, "-o", folder / "r.obj"});
        EXPECT_EQ(run.exitCode, 2) << resolution << "\n" << run.err;
        EXPECT_THAT(run.err,
                    HasSubstr(std::string("--curve-resolution: expected a whole number from 1 to 100, got ") +
                              resolution));
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "middle.obj"));
    EXPECT_FALSE(std::filesystem::exists(folder / "r.obj"));
    EXPECT_EQ(text({"HI", "--curve-resolution", "100", "-o", folder / "r.obj"}).exitCode, 0);
}

TEST(TextCommand, UpperCaseExtensionsAreKnown) {
    TempFolder folder;
    const ProgramResult run =
        text({"A", "-o", folder / "a.OBJ", "-o", folder / "a.Stl", "--preview", folder / "a.PNG"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_GT(readObj(folder / "a.OBJ").triangles, 0u);
    EXPECT_TRUE(std::filesystem::exists(folder / "a.Stl"));
    EXPECT_TRUE(std::filesystem::exists(folder / "a.PNG"));
}

TEST(TextCommand, OneFileNamedTwiceIsRefused) {
    TempFolder folder;
    const ProgramResult run = text({"A", "-o", folder / "a.obj", "-o", folder / "sub/../a.obj"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.err, HasSubstr("is given twice"));
    EXPECT_FALSE(std::filesystem::exists(folder / "a.obj"));
}

TEST(TextCommand, LibraryChatterStaysOffTheTerminal) {
    TempFolder folder;
    ProgramRun quiet;
    quiet.args = {"text", "A", "-o", folder / "a.obj"};
    quiet.environment = {{"XDG_RUNTIME_DIR", ""}, {"TMPDIR", folder.path().string()}};
    const ProgramResult unset = runProgram(quiet);
    EXPECT_EQ(unset.exitCode, 0) << unset.err;
    EXPECT_THAT(unset.err, Not(HasSubstr("QStandardPaths")));

    // A runtime folder of the session's that others may read makes Qt
    // complain: a diagnostic for --verbose, not for every run.
    const std::filesystem::path shared = folder / "shared";
    std::filesystem::create_directory(shared);
    std::filesystem::permissions(
        shared, std::filesystem::perms::owner_all | std::filesystem::perms::group_read |
                    std::filesystem::perms::group_exec | std::filesystem::perms::others_read |
                    std::filesystem::perms::others_exec);
    quiet.environment = {{"XDG_RUNTIME_DIR", shared}};
    const ProgramResult complained = runProgram(quiet);
    EXPECT_EQ(complained.exitCode, 0) << complained.err;
    EXPECT_THAT(complained.err, Not(HasSubstr("QStandardPaths")));
    ProgramRun verbose = quiet;
    verbose.args.insert(verbose.args.begin(), "--verbose");
    const ProgramResult shown = runProgram(verbose);
    EXPECT_EQ(shown.exitCode, 0) << shown.err;
    EXPECT_THAT(shown.err, HasSubstr("// Debug: QStandardPaths: wrong permissions on runtime directory"));
}

} // namespace
