#include "ProgramRunner.h"

#include <gtest/gtest.h>

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(Scripts, CommandScriptsRunAndTheirErrorsNameTheLine) {
    const TempFolder folder;
    const ProgramResult good = runZyvo({"run", folder.write("good.zys", "print \"hello\";\n").string()});
    EXPECT_EQ(good.exitCode, 0) << good.err;
    EXPECT_TRUE(contains(good.out, "hello"));

    const auto bad = folder.write("bad.zys", "print \"first\";\nprint \"second\";\nnoSuchThing 3;\n"
                                             "print \"never\";\n");
    const ProgramResult failed = runZyvo({"run", bad.string()});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(contains(failed.err, "line 3")) << failed.err;
    EXPECT_TRUE(contains(failed.err, "noSuchThing")) << failed.err;
    EXPECT_TRUE(contains(failed.out, "second"));
    EXPECT_FALSE(contains(failed.out, "never")) << "a script stops at its first error";

    const ProgramResult unparsed =
        runZyvo({"run", folder.write("unparsed.zys", "print \"a\";\nprint (1 + ;\n").string()});
    EXPECT_EQ(unparsed.exitCode, 1);
    EXPECT_TRUE(contains(unparsed.err, "line 2")) << unparsed.err;
    EXPECT_FALSE(contains(unparsed.out, "a\n")) << "a script that does not parse runs not at all";
}

TEST(Scripts, QuietShowsErrorsOnly) {
    const TempFolder folder;
    const ProgramResult good = runZyvo({"-q", "run", folder.write("good.zys", "print \"hello\";").string()});
    EXPECT_EQ(good.exitCode, 0);
    EXPECT_EQ(good.out, "");
    const ProgramResult bad =
        runZyvo({"run", "--quiet", folder.write("bad.zys", "print \"hello\"; nothing;").string()});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.out, "");
    EXPECT_TRUE(contains(bad.err, "// Error: ")) << bad.err;
}

TEST(Scripts, PythonCodeAndFiles) {
    const ProgramResult sum = runZyvo({"python", "-c", "1 + 2"});
    EXPECT_EQ(sum.exitCode, 0) << sum.err;
    EXPECT_EQ(sum.out, "3\n");

    const ProgramResult raised = runZyvo({"python", "-c", "raise ValueError('boom')"});
    EXPECT_EQ(raised.exitCode, 1);
    EXPECT_TRUE(contains(raised.err, "ValueError: boom")) << raised.err;

    const TempFolder folder;
    const auto script = folder.write("args.py", "import sys\n"
                                                "import zyvo.cmds as cmds\n"
                                                "print(sys.argv[1:], __name__)\n"
                                                "cmds.print('through the host')\n");
    const ProgramResult file = runZyvo({"python", script.string(), "a", "b c"});
    EXPECT_EQ(file.exitCode, 0) << file.err;
    EXPECT_TRUE(contains(file.out, "['a', 'b c'] __main__")) << file.out;
    EXPECT_TRUE(contains(file.out, "through the host")) << file.out;

    const auto failing = folder.write("failing.py", "x = 1\n\nundefined_name\n");
    const ProgramResult failed = runZyvo({"run", failing.string()});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(contains(failed.err, "NameError")) << failed.err;
    EXPECT_TRUE(contains(failed.out + failed.err, "line 3")) << failed.out << failed.err;

    EXPECT_EQ(runZyvo({"run", folder.write("done.py", "import sys\nsys.exit(0)\n").string()}).exitCode, 0);
    EXPECT_EQ(runZyvo({"run", folder.write("exit.py", "import sys\nsys.exit(3)\n").string()}).exitCode, 1);
}

TEST(Scripts, ScenesOpenAndOtherFilesAreRefused) {
    const TempFolder folder;
    const auto scene = folder / "saved.zya";
    const auto save = folder.write("save.zys", "createNode transform -n keeper;\nfile -rename \"" +
                                                   scene.string() + "\" -save;\n");
    ASSERT_EQ(runZyvo({"run", save.string()}).exitCode, 0);
    const ProgramResult opened =
        runZyvo({"export", "keeper", (folder / "x.obj").string(), "--scene", scene.string()});
    EXPECT_EQ(opened.exitCode, 1);
    EXPECT_TRUE(contains(opened.err, "Cannot export \"keeper\""))
        << "the node of the opened scene is found, but holds no mesh\n"
        << opened.err;

    const ProgramResult other = runZyvo({"run", folder.write("notes.txt", "print 1;").string()});
    EXPECT_EQ(other.exitCode, 1);
    EXPECT_TRUE(contains(other.err, "Cannot tell how to run")) << other.err;
}

TEST(Scripts, ErrorsOfCommandsInAScriptCarryTheFileAndLine) {
    const TempFolder folder;
    const auto script = folder.write("nodes.zys", "createNode transform -n a;\n  createNode noSuchType;\n");
    const ProgramResult failed = runZyvo({"run", script.string()});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(contains(failed.err, "// Error: " + script.string() + ": line 2, column 3: createNode: "))
        << failed.err;
}

TEST(Scripts, ASceneWithAnUnterminatedCommentFails) {
    const TempFolder folder;
    const auto scene = folder.write("open.zya", "createNode transform -n a;\n/* never closed\n"
                                                "createNode transform -n b;\n");
    const ProgramResult failed = runZyvo({"run", scene.string()});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(contains(failed.err, scene.string() + ": line 2, column 1: this comment is never closed"))
        << failed.err;
}

} // namespace
