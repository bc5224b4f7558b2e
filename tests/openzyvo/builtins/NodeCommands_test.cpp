#include "SceneTest.h"

namespace {

using NodeCommands = SceneTest;

TEST_F(NodeCommands, CreateNodeNamesNodesUniquelyAndParentsThem) {
    EXPECT_EQ(run("createNode transform"), "transform1");
    EXPECT_EQ(run("createNode transform -n \"group\""), "group");
    EXPECT_EQ(run("createNode transform -n group"), "group1");
    EXPECT_EQ(run("createNode transform -n child -p group"), "child");
    EXPECT_EQ(strings("ls -l \"child\""), std::vector<std::string>{"|group|child"});
    // A shape made alone gets a transform to live under.
    EXPECT_EQ(run("createNode mesh -n \"shape\""), "shape");
    EXPECT_EQ(strings("ls -l shape"), std::vector<std::string>{"|transform2|shape"});
}

TEST_F(NodeCommands, CreateNodeRefusesWhatCannotBeMade) {
    EXPECT_EQ(failure("createNode nope"), "createNode: Unknown node type: nope");
    EXPECT_EQ(failure("createNode animCurve"),
              "createNode: 'animCurve' is an abstract node type; no node of it can be made");
    EXPECT_NE(failure("createNode transform -n \"two words\"").find("is not a valid node name"),
              std::string::npos);
    EXPECT_EQ(failure("createNode transform -p ghost"), "createNode: No object matches name: ghost");
    run("createNode sceneTestNode -n plain");
    EXPECT_EQ(failure("createNode transform -p plain"),
              "createNode: 'plain' is not a transform and cannot be a parent");
    run("createNode transform -n t");
    EXPECT_EQ(failure("createNode sceneTestNode -p t"),
              "createNode: -parent applies to DAG nodes; 'sceneTestNode' is not a DAG node type");
    EXPECT_EQ(strings("ls -type transform -type sceneTestNode"), (std::vector<std::string>{"plain", "t"}));
}

TEST_F(NodeCommands, UndoOfCreateNodeTakesTheNodeAwayAndRedoBringsItBack) {
    run("createNode transform -n top");
    run("createNode transform -n inner -p top");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("objExists inner"), "false");
    EXPECT_EQ(run("objExists top"), "true");
    ZGlobal::executeCommand("redo");
    EXPECT_EQ(strings("ls -l inner"), std::vector<std::string>{"|top|inner"});
}

TEST_F(NodeCommands, DeleteTakesChildrenAndConnectionsAlongAndUndoRestoresThem) {
    run("createNode transform -n top; createNode transform -n inner -p top; createNode transform -n other");
    run("connectAttr inner.translateX other.translateY");
    run("delete top inner");
    EXPECT_EQ(strings("ls -type transform"), std::vector<std::string>{"other"});
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("ls -l inner"), std::vector<std::string>{"|top|inner"});
    EXPECT_EQ(strings("listConnections -p true other"), std::vector<std::string>{"inner.translateX"});
}

TEST_F(NodeCommands, DeleteRefusesUnknownAndDefaultNodes) {
    EXPECT_EQ(failure("delete ghost"), "delete: No object matches name: ghost");
    EXPECT_EQ(failure("delete time1"), "delete: 'time1' is a default node and cannot be deleted");
    EXPECT_EQ(failure("select -cl; delete"), "delete: nothing to delete: name the nodes or select them");
}

TEST_F(NodeCommands, RenameReturnsTheNameTheNodeGot) {
    run("createNode transform -n a; createNode transform -n b");
    EXPECT_EQ(run("rename a c"), "c");
    EXPECT_EQ(run("rename c b"), "b1");
    EXPECT_EQ(failure("rename ghost x"), "rename: No object matches name: ghost");
    EXPECT_EQ(failure("rename time1 clock"), "rename: 'time1' is a default node and cannot be renamed");
    EXPECT_NE(failure("rename b \"1x\"").find("is not a valid node name"), std::string::npos);
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("objExists c"), "true");
}

TEST_F(NodeCommands, LsMatchesPatternsAndTypesInSceneOrder) {
    run("createNode transform -n boxA; createNode sceneTestNode -n boxB; createNode transform -n ball");
    EXPECT_EQ(strings("ls \"box*\""), (std::vector<std::string>{"boxA", "boxB"}));
    EXPECT_EQ(strings("ls \"b?x?\" -type sceneTestNode"), std::vector<std::string>{"boxB"});
    EXPECT_EQ(strings("ls -type time -type sceneTestNode"), (std::vector<std::string>{"time1", "boxB"}));
    EXPECT_EQ(strings("ls nothing*"), std::vector<std::string>{});
}

TEST_F(NodeCommands, SelectReplacesAddsRemovesAndUndoes) {
    run("createNode transform -n a; createNode transform -n b; createNode transform -n c");
    run("select a");
    run("select -add b c");
    EXPECT_EQ(strings("ls -sl"), (std::vector<std::string>{"a", "b", "c"}));
    run("select -d b");
    EXPECT_EQ(strings("ls -sl"), (std::vector<std::string>{"a", "c"}));
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("ls -sl"), (std::vector<std::string>{"a", "b", "c"}));
    run("select -cl");
    EXPECT_EQ(strings("ls -sl"), std::vector<std::string>{});
    EXPECT_EQ(failure("select ghost"), "select: No object matches name: ghost");
}

TEST_F(NodeCommands, ObjExistsKnowsNodesAndPlugs) {
    run("createNode sceneTestNode -n n");
    EXPECT_EQ(run("objExists n"), "true");
    EXPECT_EQ(run("objExists n.weight"), "true");
    EXPECT_EQ(run("objExists n.profile[3].profile_Position"), "true");
    EXPECT_EQ(run("objExists n.nothing"), "false");
    EXPECT_EQ(run("objExists ghost.weight"), "false");
}

TEST_F(NodeCommands, PythonCallsTheSameCommands) {
    ZString result;
    ASSERT_TRUE(
        ZGlobal::executePythonCommand("import zyvo.cmds as cmds\n"
                                      "cmds.createNode('transform', n='parent')\n"
                                      "cmds.createNode('transform', n='kid', p='parent', ss=True)\n"));
    ASSERT_TRUE(ZGlobal::executePythonCommand("cmds.ls('kid', long=True)", result));
    EXPECT_EQ(result.asStdString(), "['|parent|kid']");
    EXPECT_FALSE(ZGlobal::executePythonCommand("cmds.createNode('nope')"));
    EXPECT_NE(errors().back().find("Unknown node type: nope"), std::string::npos);
}

} // namespace
