#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <OpenZyvoHost/ZHostPlugins.h>
#include <OpenZyvoHost/ZHostScripts.h>
#include <OpenZyvoHost/ZHostSession.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A 4 x 4 square with a 2 x 2 square hole under a transform.
const char* const kPlate = R"(
createNode transform -n plate;
createNode mesh -n plateShape -p plate;
setAttr -type "mesh" plateShape.inMesh
    8  -2 -2 0  2 -2 0  2 2 0  -2 2 0  -1 -1 0  1 -1 0  1 1 0  -1 1 0
    1  2  4 0 1 2 3  4 4 7 6 5;
)";

bool startsWith(const std::string& text, const std::string& start) {
    return text.rfind(start, 0) == 0;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::size_t linesStartingWith(const std::string& text, const std::string& start) {
    std::size_t count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += startsWith(line, start) ? 1 : 0;
    return count;
}

std::string readFile(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// One session for the program, as a host has, ended while the runtime still
// stands (a static session would end after parts of it); each test starts
// from an empty scene and reads back only the errors it caused.
class HostInterface : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        s_session = std::make_unique<ZHost::Session>(ZHost::SessionOptions{false, {}, {}});
    }
    static void TearDownTestSuite() { s_session.reset(); }

    void SetUp() override {
        ASSERT_TRUE(ZFileIO::newFile(true));
        m_errorsBefore = ZHost::errorCount();
        fs::create_directories(m_folder);
    }

    void TearDown() override {
        std::error_code error;
        fs::remove_all(m_folder, error);
    }

    std::vector<std::string> errors() const { return ZHost::errorsSince(m_errorsBefore); }
    std::string lastError() const {
        const auto all = errors();
        return all.empty() ? std::string() : all.back();
    }

    const fs::path m_folder = fs::temp_directory_path() / ("zyvo-host-" + std::to_string(::getpid()));

private:
    static std::unique_ptr<ZHost::Session> s_session;
    std::size_t m_errorsBefore = 0;
};

std::unique_ptr<ZHost::Session> HostInterface::s_session;

TEST_F(HostInterface, ScriptErrorsSayWhereTheyStand) {
    EXPECT_FALSE(ZHost::runCommandScript("createNode transform -n a;\nnoSuchCommand 1;\n", false, "job.zys"));
    EXPECT_TRUE(startsWith(lastError(), "job.zys: line 2, column 1: ")) << lastError();

    const fs::path script = m_folder / "broken.zys";
    std::ofstream(script) << "createNode transform -n b;\n\n  noSuchCommand;\n";
    EXPECT_FALSE(ZHost::runCommandFile(script.string(), false));
    EXPECT_TRUE(startsWith(lastError(), script.string() + ": line 3, column 3: ")) << lastError();

    EXPECT_EQ(ZHost::runCommandFile((m_folder / "missing.zys").string(), false), ZStatus::kNotFound);
    EXPECT_TRUE(contains(lastError(), "Cannot read the script")) << lastError();
}

TEST_F(HostInterface, ErrorsSinceACountAreOnlyTheNewerOnes) {
    EXPECT_TRUE(errors().empty());
    ZHost::runCommandScript("noSuchFirst;", false);
    const std::size_t between = ZHost::errorCount();
    ZHost::runCommandScript("noSuchSecond;", false);
    const std::vector<std::string> newer = ZHost::errorsSince(between);
    ASSERT_EQ(newer.size(), 1u);
    EXPECT_TRUE(contains(newer[0], "noSuchSecond")) << newer[0];
    EXPECT_EQ(errors().size(), 2u);
    EXPECT_TRUE(ZHost::errorsSince(ZHost::errorCount()).empty());
}

TEST_F(HostInterface, PythonExpressionsYieldTheirValue) {
    const ZHost::PythonResult value = ZHost::runPython("6 * 7");
    EXPECT_TRUE(value.status);
    EXPECT_TRUE(value.hasValue);
    EXPECT_EQ(value.value, "42");
    const ZHost::PythonResult statement = ZHost::runPython("answer = 42");
    EXPECT_TRUE(statement.status);
    EXPECT_FALSE(statement.hasValue);
    EXPECT_FALSE(ZHost::runPython("raise ValueError('boom')").status);
    EXPECT_TRUE(contains(lastError(), "boom")) << lastError();
}

TEST_F(HostInterface, ProcedureArgumentsArriveExactlyAsGiven) {
    ASSERT_TRUE(
        ZHost::runPython("import zyvo\nzyvo.registerProcedure('echoArguments', lambda *a: list(a))").status);
    const std::vector<std::string> arguments{"say \"hi\";\n", "back\\slash", "\xc3\xbc", ""};
    std::vector<std::string> result;
    EXPECT_TRUE(ZHost::callProcedure("echoArguments", arguments, result));
    EXPECT_EQ(result, arguments);
    EXPECT_TRUE(ZHost::callProcedure("objExists", {"time1"}, result)) << lastError();
    EXPECT_EQ(result, std::vector<std::string>{"true"}) << "a command's value comes back as its text";
    EXPECT_FALSE(ZHost::callProcedure("noSuchProcedure", {}, result));
    EXPECT_TRUE(contains(lastError(), "noSuchProcedure")) << lastError();
}

TEST_F(HostInterface, PythonFilesRunAsMainWithTheirArguments) {
    const fs::path file = m_folder / "it's main.py";
    std::ofstream(file) << "import sys, builtins\n"
                           "builtins.seen = [__name__] + sys.argv[1:]\n"
                           "if sys.argv[1:] == ['fail']:\n"
                           "    sys.exit(3)\n"
                           "sys.exit(0)\n";
    EXPECT_TRUE(ZHost::runPythonFile(file.string(), {"a b", "c\\'d"}));
    EXPECT_EQ(ZHost::runPython("__import__('builtins').seen").value, "['__main__', 'a b', \"c\\\\'d\"]");
    EXPECT_FALSE(ZHost::runPythonFile(file.string(), {"fail"})) << "a status other than 0 fails";
}

TEST_F(HostInterface, MeshesAreWrittenInTheFormatOfTheirExtension) {
    ASSERT_TRUE(ZHost::runCommandScript(kPlate, false)) << lastError();
    ZHost::MeshScene scene;
    EXPECT_TRUE(scene.isEmpty());
    ASSERT_TRUE(ZHost::gatherMeshes({"plate"}, scene)) << lastError();
    EXPECT_FALSE(scene.isEmpty());

    const fs::path obj = m_folder / "made" / "plate.OBJ";
    ASSERT_TRUE(ZHost::writeMeshes(scene, obj.string())) << lastError();
    EXPECT_EQ(linesStartingWith(readFile(obj), "v "), 8u) << readFile(obj);
    EXPECT_TRUE(fs::exists(m_folder / "made" / "plate.mtl"));
    EXPECT_EQ(ZHost::filesWrittenFor(obj.string()),
              (std::vector<std::string>{obj.string(), (m_folder / "made" / "plate.mtl").string()}));

    const fs::path stl = m_folder / "plate.stl";
    ASSERT_TRUE(ZHost::writeMeshes(scene, stl.string())) << lastError();
    EXPECT_EQ(fs::file_size(stl), 84u + 8u * 50u) << "a binary STL of the plate's 8 triangles";

    EXPECT_EQ(ZHost::writeMeshes(scene, (m_folder / "plate.txt").string()), ZStatus::kInvalidParameter);
    EXPECT_TRUE(contains(lastError(), "use .obj, .stl, .glb or .png")) << lastError();
    EXPECT_FALSE(fs::exists(m_folder / "plate.txt"));
}

TEST_F(HostInterface, GatheringNamesTheNodeItCannotUse) {
    ZHost::MeshScene scene;
    EXPECT_EQ(ZHost::gatherMeshes({"nothing"}, scene), ZStatus::kNotFound);
    EXPECT_TRUE(contains(lastError(), "\"nothing\"")) << lastError();
    ASSERT_TRUE(ZHost::runCommandScript("createNode transform -n empty;", false));
    EXPECT_FALSE(ZHost::gatherMeshes({"empty"}, scene));
    EXPECT_TRUE(contains(lastError(), "Cannot export \"empty\"")) << lastError();
    EXPECT_TRUE(scene.isEmpty()) << "a failed gathering leaves the scene as it was";
}

TEST_F(HostInterface, PreviewsKeepToTheRenderersSides) {
    ASSERT_TRUE(ZHost::runCommandScript(kPlate, false)) << lastError();
    ZHost::MeshScene scene;
    ASSERT_TRUE(ZHost::gatherMeshes({"plateShape"}, scene)) << lastError();
    const ZHost::PreviewSize preview = ZHost::defaultPreviewSize();
    EXPECT_LE(ZHost::minPreviewSide(), std::min(preview.width, preview.height));
    EXPECT_GE(ZHost::maxPreviewSide(), std::max(preview.width, preview.height));

    const fs::path png = m_folder / "small.png";
    ASSERT_TRUE(ZHost::writeMeshes(scene, png.string(), {ZHost::minPreviewSide(), ZHost::minPreviewSide()}))
        << lastError();
    EXPECT_EQ(readFile(png).substr(1, 3), "PNG");
    EXPECT_FALSE(ZHost::writeMeshes(scene, (m_folder / "wide.png").string(),
                                    {ZHost::maxPreviewSide() + 1, ZHost::minPreviewSide()}));
    EXPECT_FALSE(fs::exists(m_folder / "wide.png"));
}

TEST_F(HostInterface, AMissingPluginIsAnErrorNamingIt) {
    std::string name = "untouched";
    EXPECT_FALSE(ZHost::loadPlugin("NoSuchPlugin", &name));
    EXPECT_TRUE(contains(lastError(), "NoSuchPlugin")) << lastError();
    EXPECT_FALSE(ZHost::isPluginLoaded("NoSuchPlugin"));
    EXPECT_EQ(ZHost::pluginLibrary("NoSuchPlugin"), "");
    EXPECT_FALSE(ZHost::unloadPlugin("NoSuchPlugin"));
}

} // namespace
