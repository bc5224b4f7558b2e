#include "ProgramRunner.h"

#include <gtest/gtest.h>

// The Type plug-in's nodes, undo records and callbacks run code of its
// library; the program must end all of them before it closes the library,
// whatever the order things were made in, and exit normally.
namespace {

namespace fs = std::filesystem;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The type node's flat mesh in a shape of its own.
const char* const kFlatText = R"(createNode type -n "t";
setAttr -type "string" "t.currentFont" "DejaVu Sans";
createNode transform -n "flat";
createNode mesh -n "flatShape" -p "flat";
connectAttr "t.outputMesh" "flatShape.inMesh";
)";

bool hasErrors(const ProgramResult& result) {
    return contains(result.err, "// Error:");
}

ProgramResult runScript(const TempFolder& folder, const std::string& name, const std::string& text) {
    return runZyvo({"run", folder.write(name, text).string()});
}

TEST(PluginLifetime, SceneThatLoadsPluginExitsCleanly) {
    const TempFolder folder;
    const ProgramResult result =
        runScript(folder, "scene.zya", "requires \"Type\" \"2.0a\";\ncreateNode type -n \"t\";\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_FALSE(hasErrors(result)) << result.err;
}

TEST(PluginLifetime, ExportOfAPluginSceneExitsCleanly) {
    const TempFolder folder;
    const fs::path scene = folder.write("flat.zya", std::string("requires \"Type\" \"2.0a\";\n") + kFlatText);
    const fs::path obj = folder / "flat.obj";
    const ProgramResult result = runZyvo({"export", "flat", obj.string(), "--scene", scene.string()});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_FALSE(readFile(obj).empty());
}

TEST(PluginLifetime, PluginLoadedAfterTheFirstNodeExitsCleanly) {
    const TempFolder folder;
    const ProgramResult result =
        runScript(folder, "late.zys", "createNode transform;\nloadPlugin Type;\ncreateNode type;\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_FALSE(hasErrors(result)) << result.err;
}

TEST(PluginLifetime, ExitAfterARefusedUnloadIsClean) {
    const TempFolder folder;
    const ProgramResult result =
        runScript(folder, "refused.zys", "loadPlugin Type;\ncreateNode type -n t;\nunloadPlugin Type;\n");
    EXPECT_EQ(result.exitCode, 1) << "the refusal is an error, not a crash: " << result.err;
    EXPECT_TRUE(contains(result.err, "Cannot unload plug-in Type: nodes of its types exist (t)"))
        << result.err;
}

TEST(PluginLifetime, DeletedPluginNodesHeldForUndoExitCleanly) {
    const TempFolder folder;
    const ProgramResult one = runZyvo({"python", "-c",
                                       "import zyvo.cmds as cmds\n"
                                       "cmds.loadPlugin('Type')\n"
                                       "t = cmds.createNode('type')\n"
                                       "cmds.delete(t)\n"});
    EXPECT_EQ(one.exitCode, 0) << one.err;

    const ProgramResult each =
        runScript(folder, "each.zys",
                  "loadPlugin Type;\n"
                  "createNode type -n t;\ncreateNode typeExtrude -n x;\ncreateNode shellDeformer -n d;\n"
                  "delete t;\ndelete x;\ndelete d;\nundo;\nundo;\nredo;\n");
    EXPECT_EQ(each.exitCode, 0) << each.err;
    EXPECT_FALSE(hasErrors(each)) << each.err;
}

// The python generator's expression runs inside the type node's compute;
// what it tries there must be refused, never free what is being computed.
TEST(PluginLifetime, GeneratorThatFreesWhatItComputesIsRefused) {
    const TempFolder folder;
    struct Case {
        std::string expression;
        std::string refusal;
    };
    const Case cases[] = {
        {"cmds.delete('t')", "Cannot delete nodes while 't' is being computed"},
        {"cmds.delete('flatShape')", "Cannot delete nodes while 't' is being computed"},
        {"cmds.file(new=True, f=True)", "Cannot replace the scene while 't' is being computed"},
        {"cmds.unloadPlugin('Type')", "Cannot unload plug-in Type while 't' is being computed"},
    };
    for (const Case& c : cases) {
        const std::string script = "loadPlugin Type;\n" + std::string(kFlatText) +
                                   "setAttr \"t.generator\" 9;\n"
                                   "setAttr -type \"string\" \"t.pythonExpression\" \"(lambda cmds: " +
                                   c.expression +
                                   ")(__import__('zyvo.cmds').cmds)\";\n"
                                   "polyEvaluate -v flatShape;\n";
        const ProgramResult result = runScript(folder, "meddling.zys", script);
        EXPECT_EQ(result.exitCode, 1) << c.expression << ": " << result.err;
        EXPECT_TRUE(contains(result.err, c.refusal)) << c.expression << ": " << result.err;
    }
}

TEST(PluginLifetime, DefaultNodeNameIsNotTakenBeforeItsNodeExists) {
    const TempFolder folder;
    const ProgramResult result = runScript(folder, "early.zys",
                                           "createNode transform -n time1;\n"
                                           "loadPlugin Type;\n"
                                           "createNode type -n t;\n"
                                           "connectAttr time1.outTime t.time;\n");
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_FALSE(hasErrors(result)) << result.err;
}

} // namespace
