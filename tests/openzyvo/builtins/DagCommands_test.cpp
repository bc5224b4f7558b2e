#include "SceneTest.h"

#include <OpenZyvo/ZDoubleArray.h>

namespace {

// nodeType, listRelatives and parent, in the command language and through
// zyvo.cmds. The scene: top > (mid > shape), top > leaf, and a loose node.
class DagCommands : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode transform -n top; createNode transform -n mid -p top; createNode mesh -n shape -p "
            "mid;"
            "createNode transform -n leaf -p top; createNode transform -n loose");
        python("import zyvo.cmds as cmds");
    }

    static std::string pythonRepr(const std::string& expression) {
        ZString result;
        EXPECT_TRUE(ZGlobal::executePythonCommand(ZString("repr(" + expression + ")"), result, false, true))
            << expression << "\n"
            << (errors().empty() ? "" : errors().back());
        return result.asStdString();
    }
    static void python(const std::string& code) {
        EXPECT_TRUE(ZGlobal::executePythonCommand(ZString(code))) << code;
    }
    static std::vector<double> numbers(const std::string& script) {
        ZCommandResult result;
        EXPECT_TRUE(ZGlobal::executeCommand(ZString(script), result)) << script;
        ZDoubleArray values;
        EXPECT_TRUE(result.getResult(values)) << script;
        return {values.begin(), values.end()};
    }
    static void expectNear(const std::vector<double>& actual, const std::vector<double>& expected) {
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i)
            EXPECT_NEAR(actual[i], expected[i], 1e-9) << "component " << i;
    }
    static std::vector<double> worldMatrix(const std::string& node) {
        return numbers("getAttr " + node + ".worldMatrix[0]");
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(DagCommands, NodeTypeNamesTheTypeItsAncestryAndItsApiType) {
    EXPECT_EQ(run("nodeType shape"), "mesh");
    EXPECT_EQ(run("nodeType time1"), "time");
    const Names inherited = strings("nodeType -i top");
    ASSERT_FALSE(inherited.empty());
    EXPECT_EQ(inherited.back(), "transform");
    EXPECT_NE(std::find(inherited.begin(), inherited.end(), "dagNode"), inherited.end());
    EXPECT_EQ(strings("nodeType -i -itn mesh").back(), "mesh");
    EXPECT_EQ(run("nodeType -api top"), "kTransform");
    EXPECT_EQ(failure("nodeType ghost"), "nodeType: No object matches name: ghost");
    EXPECT_EQ(failure("nodeType -itn ghost"), "nodeType: Unknown node type: ghost");
    EXPECT_EQ(pythonRepr("cmds.nodeType('shape')"), "'mesh'");
    EXPECT_EQ(pythonRepr("cmds.nodeType('top', inherited=True)[-1]"), "'transform'");
}

TEST_F(DagCommands, ListRelativesWalksTheDag) {
    EXPECT_EQ(strings("listRelatives top"), (Names{"mid", "leaf"}));
    EXPECT_EQ(strings("listRelatives -p shape"), Names{"mid"});
    EXPECT_EQ(strings("listRelatives -ap shape"), (Names{"mid", "top"}));
    // Deepest first: each node before its parent.
    EXPECT_EQ(strings("listRelatives -ad top"), (Names{"leaf", "shape", "mid"}));
    EXPECT_EQ(strings("listRelatives -s mid"), Names{"shape"});
    EXPECT_EQ(strings("listRelatives -ad -type mesh top"), Names{"shape"});
    EXPECT_EQ(strings("listRelatives -ad -type dagNode top"), (Names{"leaf", "shape", "mid"}));
    EXPECT_EQ(strings("listRelatives -f mid"), Names{"|top|mid|shape"});
    EXPECT_EQ(strings("listRelatives -p mid leaf"), Names{"top"});
    EXPECT_TRUE(strings("listRelatives loose").empty());
    EXPECT_TRUE(strings("listRelatives time1").empty());
    run("select mid");
    EXPECT_EQ(strings("listRelatives"), Names{"shape"});
}

TEST_F(DagCommands, ListRelativesMisuseIsOneClearError) {
    EXPECT_EQ(failure("listRelatives ghost"), "listRelatives: No object matches name: ghost");
    EXPECT_EQ(failure("listRelatives -p -ad top"),
              "listRelatives: give one of -children, -parent, -allDescendents and -allParents");
    EXPECT_EQ(failure("select -cl; listRelatives"),
              "listRelatives: nothing is selected: name the nodes or select them");
}

TEST_F(DagCommands, ListRelativesFromPython) {
    EXPECT_EQ(pythonRepr("cmds.listRelatives('top', allDescendents=True, fullPath=True)"),
              "['|top|leaf', '|top|mid|shape', '|top|mid']");
    EXPECT_EQ(pythonRepr("cmds.listRelatives('shape', parent=True)"), "['mid']");
    EXPECT_EQ(pythonRepr("cmds.listRelatives('mid', type='mesh')"), "['shape']");
}

TEST_F(DagCommands, ParentKeepsTheWorldPlaceUnlessRelative) {
    run("setAttr top.translate 10 0 0; setAttr top.rotateY 90; setAttr top.scale 2 2 2;"
        "setAttr loose.translate 1 2 3; setAttr loose.rotateX 30");
    const std::vector<double> before = worldMatrix("loose");
    EXPECT_EQ(strings("parent loose top"), Names{"loose"});
    EXPECT_EQ(strings("listRelatives -p loose"), Names{"top"});
    expectNear(worldMatrix("loose"), before);

    run("parent -w loose");
    EXPECT_EQ(strings("ls -l loose"), Names{"|loose"});
    expectNear(numbers("getAttr loose.translate"), {1, 2, 3});
    expectNear(numbers("getAttr loose.rotate"), {30, 0, 0});

    run("parent -r loose leaf");
    EXPECT_EQ(strings("ls -l loose"), Names{"|top|leaf|loose"});
    expectNear(numbers("getAttr loose.translate"), {1, 2, 3});
}

TEST_F(DagCommands, UndoOfParentPutsNodesBackWithTheirValues) {
    run("setAttr top.translate 5 0 0; setAttr loose.translate 1 0 0");
    run("parent loose leaf");
    expectNear(numbers("getAttr loose.translate"), {-4, 0, 0});
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("ls -l loose"), Names{"|loose"});
    expectNear(numbers("getAttr loose.translate"), {1, 0, 0});
    ZGlobal::executeCommand("redo");
    EXPECT_EQ(strings("ls -l loose"), Names{"|top|leaf|loose"});
    expectNear(numbers("getAttr loose.translate"), {-4, 0, 0});

    // Undo after the new parent was deleted and restored by its own undo.
    run("delete top");
    ZGlobal::executeCommand("undo");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("ls -l loose"), Names{"|loose"});
}

TEST_F(DagCommands, ParentRefusesMovesTheDagCannotTake) {
    EXPECT_EQ(failure("parent top mid"), "parent: 'top' is above 'mid' and cannot move under it");
    EXPECT_EQ(failure("parent top top"), "parent: 'top' cannot be its own parent");
    EXPECT_EQ(failure("parent loose shape"), "parent: 'shape' is not a transform and cannot be a parent");
    EXPECT_EQ(failure("parent shape leaf"),
              "parent: 'shape' is a shape; give -shape to move it to another transform");
    EXPECT_EQ(failure("parent -w -s shape"), "parent: 'shape' is a shape and must stay under a transform");
    EXPECT_EQ(failure("parent -add loose top"),
              "parent: -addObject would give a node a second parent; a node here has one parent");
    EXPECT_EQ(failure("parent loose"),
              "parent: name the nodes to move and then their new parent, or give -world");
    EXPECT_EQ(failure("parent time1 top"), "parent: 'time1' is not a DAG node");
    EXPECT_EQ(failure("parent ghost top"), "parent: No object matches name: ghost");
    // Nothing moved.
    EXPECT_EQ(strings("listRelatives -ad top"), (Names{"leaf", "shape", "mid"}));

    run("parent -s shape leaf");
    EXPECT_EQ(strings("ls -l shape"), Names{"|top|leaf|shape"});
    log().clear();
    run("parent shape leaf; parent mid top");
    EXPECT_EQ(warnings(), (Names{"parent: 'shape' is already a child of 'leaf'",
                                 "parent: 'mid' is already a child of 'top'"}));
}

TEST_F(DagCommands, ParentCannotKeepAConnectedTransformInPlace) {
    run("setAttr top.translate 5 0 0; connectAttr loose.translateY loose.translateX");
    EXPECT_EQ(
        failure("parent loose top"),
        "parent: 'loose' cannot keep its place: 'loose.translateX' is connected; give -relative to keep "
        "its values");
    EXPECT_EQ(strings("ls -l loose"), Names{"|loose"});
    run("parent -r loose top");
    EXPECT_EQ(strings("ls -l loose"), Names{"|top|loose"});
}

TEST_F(DagCommands, ParentFromPythonIsOneUndoStep) {
    EXPECT_EQ(pythonRepr("cmds.parent('loose', 'mid', 'leaf', relative=True)"), "['loose', 'mid']");
    EXPECT_EQ(strings("listRelatives leaf"), (Names{"loose", "mid"}));
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("listRelatives top"), (Names{"mid", "leaf"}));
    EXPECT_EQ(pythonRepr("cmds.parent('loose', world=True)"), "['loose']");
}

TEST_F(DagCommands, ParentedNodesKeepTheirPlaceThroughSaveAndOpen) {
    run("parent -r loose leaf");
    save("scene.zya");
    ASSERT_TRUE(ZFileIO::newFile(true));
    ASSERT_TRUE(ZFileIO::open(ZString(path("scene.zya"))));
    EXPECT_EQ(strings("ls -l loose"), Names{"|top|leaf|loose"});
}

TEST_F(DagCommands, SceneFilesUseTheScriptingCommandsAndTheirErrorsNameTheLine) {
    write("parented.zya", "createNode transform -n a;\n"
                          "createNode transform -n b;\n"
                          "parent -r a b;\n"
                          "listRelatives -type ghostType ghost;\n");
    EXPECT_FALSE(ZFileIO::open(ZString(path("parented.zya"))));
    EXPECT_EQ(strings("ls -l a"), Names{"|b|a"});
    const Names shown = errors();
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown.front(),
              path("parented.zya") + ": line 4, column 1: listRelatives: No object matches name: ghost");
}
