#include "PluginTest.h"
#include "commands/CommandRegistry.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvoRender/ZDrawRegistry.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class PluginRefusal : public PluginTest {
protected:
    // Loading fails, nothing is listed, and the error names the plug-in.
    std::string refusal(const std::string& nameOrPath, const std::string& plugin) {
        EXPECT_FALSE(run("loadPlugin \"" + nameOrPath + "\"").status) << nameOrPath;
        EXPECT_TRUE(oz::plugins::PluginRegistry::instance().names().empty());
        const std::string error = lastError();
        EXPECT_NE(error.find(plugin), std::string::npos) << error;
        return error;
    }
};

TEST_F(PluginRefusal, MissingPluginNamesThePathSearched) {
    const std::string error = refusal("NoSuchPlugin", "NoSuchPlugin");
    EXPECT_NE(error.find(ZYVO_TEST_PLUGIN_DIR), std::string::npos) << error;
    EXPECT_NE(refusal("/nowhere/NoSuchPlugin.so", "/nowhere/NoSuchPlugin.so").find("not found"),
              std::string::npos);
}

TEST_F(PluginRefusal, LibraryWithoutApiVersionIsRefusedUnrun) {
    EXPECT_NE(refusal("Unversioned", "Unversioned").find("does not export ZApiVersion"), std::string::npos);
    EXPECT_FALSE(oz::cmd::CommandRegistry::instance().find("unversionedCommand"))
        << "its initializePlugin must not run";
}

TEST_F(PluginRefusal, LibraryForANewerApiIsRefusedUnrun) {
    EXPECT_NE(refusal("FutureApi", "FutureApi").find("built for API 2.1.0"), std::string::npos);
    EXPECT_FALSE(oz::cmd::CommandRegistry::instance().find("futureCommand"));
}

TEST_F(PluginRefusal, FileThatIsNoLibraryIsRefused) {
    const fs::path folder = fs::temp_directory_path() / ("zyvo-bogus-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    std::ofstream(folder / "Bogus.so") << "not a shared library\n";
    refusal((folder / "Bogus.so").string(), "Bogus");
    fs::remove_all(folder);
}

TEST_F(PluginRefusal, FailedInitialiseLeavesNothingBehind) {
    // Twice: a leftover of the first attempt would make the second fail
    // differently ("already registered").
    for (int attempt = 0; attempt < 2; ++attempt) {
        log().clear();
        const std::string error = refusal("Failing", "Failing");
        EXPECT_NE(error.find("initializePlugin failed (Insufficient memory)"), std::string::npos)
            << "attempt " << attempt << ": " << error;
        EXPECT_EQ(log().texts(oz::cmd::MessageLog::Kind::Error).size(), 1u) << "attempt " << attempt;
        EXPECT_FALSE(oz::NodeTypeRegistry::instance().find(ZString("failingNode")));
        EXPECT_FALSE(oz::cmd::CommandRegistry::instance().find("failingCommand"));
        EXPECT_FALSE(ZHWRender::ZDrawRegistry::hasDrawOverride("drawdb/geometry/failingNode"));
    }
}

TEST_F(PluginRefusal, UnloadingWhatIsNotLoadedFails) {
    EXPECT_FALSE(run("unloadPlugin Sample").status);
    EXPECT_EQ(lastError(), "Cannot unload plug-in Sample: it is not loaded");
}

} // namespace
