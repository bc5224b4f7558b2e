#include "SceneTest.h"

namespace {

class ConnectionCommands : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode sceneTestNode -n a; createNode sceneTestNode -n b; createNode sceneTestNode -n c");
        run("setAttr a.input 2; setAttr c.input 5");
    }
};

TEST_F(ConnectionCommands, ValuesFlowThroughConnections) {
    run("connectAttr a.output b.input");
    EXPECT_EQ(run("getAttr b.output"), "8");
    run("setAttr a.input 3");
    EXPECT_EQ(run("getAttr b.output"), "12");
}

TEST_F(ConnectionCommands, ListConnectionsByDirectionPlugsAndType) {
    run("connectAttr a.output b.input; connectAttr b.output c.weight; connectAttr time1.outTime b.spin");
    EXPECT_EQ(strings("listConnections b"), (std::vector<std::string>{"a", "time1", "c"}));
    EXPECT_EQ(strings("listConnections -d false b"), (std::vector<std::string>{"a", "time1"}));
    EXPECT_EQ(strings("listConnections -s false -p true b"), std::vector<std::string>{"c.weight"});
    EXPECT_EQ(strings("listConnections -c true -p true b.input"),
              (std::vector<std::string>{"b.input", "a.output"}));
    EXPECT_EQ(strings("listConnections -t time b"), std::vector<std::string>{"time1"});
    EXPECT_EQ(strings("listConnections c.input"), std::vector<std::string>{});
    EXPECT_EQ(failure("listConnections ghost"), "listConnections: No object matches name: ghost");
}

TEST_F(ConnectionCommands, AnOccupiedDestinationNeedsForce) {
    run("connectAttr a.output b.input");
    EXPECT_EQ(failure("connectAttr c.output b.input"),
              "connectAttr: 'b.input' already has an incoming connection from 'a.output'; use -force to "
              "replace it");
    run("connectAttr -f c.output b.input");
    EXPECT_EQ(run("getAttr b.output"), "20");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("listConnections -p true b.input"), std::vector<std::string>{"a.output"});
    EXPECT_EQ(run("getAttr b.output"), "8");
}

TEST_F(ConnectionCommands, ConnectingTwiceWarnsAndChangesNothing) {
    run("connectAttr a.output b.input");
    log().clear();
    run("connectAttr a.output b.input");
    ASSERT_EQ(warnings().size(), 1u);
    EXPECT_EQ(warnings()[0], "connectAttr: 'a.output' is already connected to 'b.input'");
}

TEST_F(ConnectionCommands, ConnectionErrors) {
    EXPECT_EQ(failure("connectAttr a.output ghost.input"),
              "connectAttr: No object matches name: ghost.input");
    EXPECT_EQ(failure("connectAttr a.nothing b.input"), "connectAttr: No object matches name: a.nothing");
    EXPECT_EQ(failure("connectAttr a.input b.output"),
              "connectAttr: 'b.output' cannot be a destination (not writable or not connectable)");
    EXPECT_EQ(failure("connectAttr a.label b.input"),
              "connectAttr: the kinds of 'a.label' and 'b.input' do not match");
    EXPECT_EQ(failure("connectAttr a.output"),
              "line 1, column 1: connectAttr: needs at least 2 objects, found 1");
}

TEST_F(ConnectionCommands, DisconnectAndItsUndo) {
    run("connectAttr a.output b.input");
    run("disconnectAttr a.output b.input");
    EXPECT_EQ(run("getAttr b.output"), "0");
    EXPECT_EQ(failure("disconnectAttr a.output b.input"),
              "disconnectAttr: 'a.output' is not connected to 'b.input'");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("getAttr b.output"), "8");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("listConnections b"), std::vector<std::string>{});
}

} // namespace
