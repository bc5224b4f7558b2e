#include "ProgramRunner.h"

#include <gtest/gtest.h>

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(CommandLine, VersionAndHelpSucceed) {
    const ProgramResult version = runZyvo({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "zyvo 2.0 (OpenZyvo API 2.0.0)\n");

    const ProgramResult help = runZyvo({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    for (const char* part : {"run", "python", "export", "--plugin-path", "--load-plugin", "--quiet"})
        EXPECT_TRUE(contains(help.out, part)) << part << " in\n" << help.out;

    for (const char* subcommand : {"run", "python", "export"}) {
        const ProgramResult sub = runZyvo({subcommand, "--help"});
        EXPECT_EQ(sub.exitCode, 0) << subcommand;
        EXPECT_TRUE(contains(sub.out, std::string("zyvo ") + subcommand)) << sub.out;
    }
    EXPECT_TRUE(contains(runZyvo({"export", "--help"}).out, "--frames"));
}

TEST(CommandLine, UsageErrorsExplainThemselves) {
    struct Case {
        std::vector<std::string> args;
        std::string says;
    };
    const std::vector<Case> cases{
        {{}, "subcommand"},
        {{"frobnicate"}, "subcommand"},
        {{"run", "/nowhere/script.zys"}, "/nowhere/script.zys"},
        {{"run"}, "file"},
        {{"python"}, "give -c CODE or a FILE"},
        {{"export", "plate", "out.glb", "--frames", "5:1"}, "5:1"},
        {{"export", "plate", "out.glb", "--frames", "1:x"}, "1:x"},
        {{"export", "plate", "out.glb", "--frame", "nan"}, "--frame"},
        {{"export", "plate", "out.glb", "--frame", "1", "--frames", "1:2"}, "excludes"},
        {{"export", "plate"}, "outputs"},
        {{"-q", "-v", "python", "-c", "1"}, "excludes"},
    };
    for (const Case& c : cases) {
        const ProgramResult result = runZyvo(c.args);
        EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(c.args) << "\n" << result.err;
        EXPECT_TRUE(contains(result.err, c.says)) << testing::PrintToString(c.args) << "\n" << result.err;
    }
}

} // namespace
