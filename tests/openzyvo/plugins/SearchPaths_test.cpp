#include "plugins/PluginLocator.h"
#include "plugins/SearchPaths.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using oz::plugins::SearchPaths;

class SearchPathsTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_folder = fs::temp_directory_path() / ("zyvo-paths-" + std::to_string(::getpid()));
        fs::create_directories(m_folder / "first" / "Both");
        fs::create_directories(m_folder / "second");
        touch(m_folder / "first" / "Plain");
        touch(m_folder / "second" / "Plain.so");
        touch(m_folder / "second" / "Both.so");
        ::setenv("ZYVO_PLUG_IN_PATH",
                 ((m_folder / "first").string() + "::" + (m_folder / "second").string()).c_str(), 1);
    }
    void TearDown() override {
        ::unsetenv("ZYVO_PLUG_IN_PATH");
        fs::remove_all(m_folder);
    }

    static void touch(const fs::path& file) { std::ofstream(file) << "library\n"; }

    fs::path m_folder;
};

TEST_F(SearchPathsTest, EnvironmentComesBeforeTheFolderBesideTheProgram) {
    const auto folders = SearchPaths::instance().pluginFolders();
    ASSERT_GE(folders.size(), 3u);
    const fs::path beside =
        (fs::read_symlink("/proc/self/exe").parent_path() / ".." / "plug-ins").lexically_normal();
    EXPECT_EQ(folders.back(), beside) << "the default comes last";
    EXPECT_EQ(folders[folders.size() - 3], m_folder / "first");
    EXPECT_EQ(folders[folders.size() - 2], m_folder / "second") << "empty entries are skipped";
}

TEST_F(SearchPathsTest, BareNamesMeanLibrariesAndPathsMeanFiles) {
    std::string error;
    EXPECT_EQ(oz::plugins::locatePlugin("Plain", error), m_folder / "second" / "Plain.so")
        << "a file without the extension is no library for a bare name";
    EXPECT_EQ(oz::plugins::locatePlugin("Both.so", error), m_folder / "second" / "Both.so")
        << "a folder of that name is skipped";
    EXPECT_EQ(oz::plugins::locatePlugin((m_folder / "first" / "Plain").string(), error),
              m_folder / "first" / "Plain");
    EXPECT_EQ(oz::plugins::locatePlugin((m_folder / "second" / "Both").string(), error),
              m_folder / "second" / "Both.so");
    EXPECT_FALSE(oz::plugins::locatePlugin("Missing", error));
    EXPECT_NE(error.find((m_folder / "first").string() + ":" + (m_folder / "second").string()),
              std::string::npos)
        << error;
    EXPECT_EQ(oz::plugins::pluginNameOf("/x/Type.so"), "Type");
}

} // namespace
