#pragma once

#include <OpenZyvo/ZCommandResult.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZStringArray.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

// The Type plug-in as a host meets it: Type.so loaded by the runtime's
// plug-in loading (found beside the test programs), driven by commands.
namespace typetest {

inline ZStatus run(const std::string& command) {
    return ZGlobal::executeCommand(ZString(command));
}

inline std::string text(const std::string& command) {
    ZString result;
    EXPECT_TRUE(ZGlobal::executeCommand(ZString(command), result)) << command;
    return result.asStdString();
}

inline int number(const std::string& command) {
    ZCommandResult result;
    EXPECT_TRUE(ZGlobal::executeCommand(ZString(command), result)) << command;
    double value = 0.0;
    EXPECT_TRUE(result.getResult(value)) << command;
    return static_cast<int>(value);
}

inline double real(const std::string& command) {
    ZCommandResult result;
    EXPECT_TRUE(ZGlobal::executeCommand(ZString(command), result)) << command;
    double value = 0.0;
    EXPECT_TRUE(result.getResult(value)) << command;
    return value;
}

inline std::vector<std::string> texts(const std::string& command) {
    ZStringArray result;
    EXPECT_TRUE(ZGlobal::executeCommand(ZString(command), result)) << command;
    std::vector<std::string> out;
    for (const ZString& item : result)
        out.push_back(item.asStdString());
    return out;
}

inline std::string python(const std::string& code) {
    ZString result;
    EXPECT_TRUE(ZGlobal::executePythonCommand(ZString(code), result)) << code;
    return result.asStdString();
}

// Files of the running test program, removed by removeTestFiles().
inline std::filesystem::path testFolder() {
    return std::filesystem::temp_directory_path() / ("type_tests_" + std::to_string(::getpid()));
}

inline std::filesystem::path writeFile(const std::string& name, const std::string& contents) {
    const std::filesystem::path path =
        testFolder() / ::testing::UnitTest::GetInstance()->current_test_info()->name() / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << contents;
    return path;
}

inline void removeTestFiles() {
    std::error_code error;
    std::filesystem::remove_all(testFolder(), error);
}

// Each test starts from an empty scene with the plug-in loaded, and leaves
// nothing of either behind.
class TypePluginTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(ZFileIO::newFile(true));
        ASSERT_TRUE(run("loadPlugin Type")) << "Type.so must be built beside the tests";
    }

    void TearDown() override {
        ZFileIO::newFile(true);
        if (number("pluginInfo -q -loaded Type"))
            run("unloadPlugin Type");
        removeTestFiles();
    }
};

} // namespace typetest
