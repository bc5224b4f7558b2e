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
        {{"frobnicate"}, "frobnicate"},
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

TEST(CommandLine, PreviewSizesHaveTheRenderersLimitStatedOnce) {
    const std::string help = runZyvo({"export", "--help"}).out;
    EXPECT_TRUE(contains(help, "from 16 to 4096")) << help;
    EXPECT_FALSE(contains(help, "8192")) << help;
    for (const char* option : {"--width", "--height"})
        for (const char* size : {"4097", "8192", "15", "nan", "1e9", "100.5"}) {
            const ProgramResult result = runZyvo({"export", "plate", "out.png", option, size});
            EXPECT_EQ(result.exitCode, 2) << option << " " << size << "\n" << result.err;
            EXPECT_TRUE(contains(result.err, std::string(option) +
                                                 ": expected a whole number from 16 to 4096, got " + size))
                << result.err;
        }
}

TEST(CommandLine, ListingFontsNeedsNoSubcommandButRefusesOthers) {
    const ProgramResult withRun = runZyvo({"--list-fonts", "python", "-c", "1"});
    EXPECT_EQ(withRun.exitCode, 2);
    EXPECT_TRUE(contains(withRun.err, "--list-fonts")) << withRun.err;
    const ProgramResult nothing = runZyvo({"-q"});
    EXPECT_EQ(nothing.exitCode, 2);
    EXPECT_TRUE(contains(nothing.err, "subcommand")) << nothing.err;
}

} // namespace
