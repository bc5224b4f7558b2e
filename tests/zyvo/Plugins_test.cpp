#include "ProgramRunner.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

const std::string kPluginDir = ZYVO_TEST_PLUGIN_DIR;
const std::string kScriptDir = std::string(ZYVO_TEST_DATA_DIR) + "/plugins";

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(Plugins, LoadedFromTheCommandLineBeforeTheScriptRuns) {
    const std::string code = "__import__('zyvo.cmds').cmds.sampleCommand(v=41)";
    const ProgramResult loaded = runZyvo({"--plugin-path", kPluginDir, "--script-path", kScriptDir,
                                          "--load-plugin", "Sample", "python", "-c", code});
    EXPECT_EQ(loaded.exitCode, 0) << loaded.err;
    EXPECT_EQ(loaded.out, "42.0\n");

    const ProgramResult missing = runZyvo({"python", "-c", "print('ran')", "--load-plugin", "Nope"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(contains(missing.err, "Cannot find plug-in \"Nope\"")) << missing.err;
    EXPECT_EQ(missing.out, "") << "nothing runs after a plug-in failed to load";
}

TEST(Plugins, PathsComeFromTheEnvironment) {
    const TempFolder folder;
    const auto script =
        folder.write("use.zys", "loadPlugin Sample;\nsampleCommand -v 1;\nunloadPlugin Sample;\n");
    ProgramRun run;
    run.args = {"run", script.string()};
    run.environment = {{"ZYVO_PLUG_IN_PATH", "/nowhere:" + kPluginDir}, {"ZYVO_SCRIPT_PATH", kScriptDir}};
    const ProgramResult result = runProgram(run);
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

// As installed or built: bin/zyvo beside plug-ins/ and scripts/, no
// environment.
TEST(Plugins, FoundBesideTheProgramWithoutEnvironment) {
    const TempFolder install;
    fs::create_directories(install / "bin");
    fs::create_directories(install / "plug-ins");
    fs::copy_file(ZYVO_PROGRAM, install / "bin/zyvo");
    fs::copy_file(kPluginDir + "/Sample.so", install / "plug-ins/Sample.so");
    fs::create_directories(install / "scripts/Sample");
    fs::copy(kScriptDir + "/Sample/zyvo", install / "scripts/Sample/zyvo", fs::copy_options::recursive);

    const auto script = install.write("use.zys", "loadPlugin Sample;\nsampleCommand -v 1;\n");
    ProgramRun run;
    run.args = {"run", script.string()};
    run.program = install / "bin/zyvo";
    const ProgramResult result = runProgram(run);
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

} // namespace
