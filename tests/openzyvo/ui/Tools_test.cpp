#include "commands/ContextCommands.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZModelMessage.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxContextCommand.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvoUI/Z3dView.h>
#include <OpenZyvoUI/ZPxSelectionContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> g_events;

// Tells what the host does with it: set up, put away, each selection it sees
// (with the click's ray, when there is one).
class RecordingContext : public ZPxSelectionContext {
public:
    void toolOnSetup() override {
        g_events.push_back("setup");
        m_callback = ZModelMessage::addCallback(ZModelMessage::kActiveListModified, selectionChanged, this);
    }
    void toolOffCleanup() override {
        g_events.push_back("cleanup");
        ZMessage::removeCallback(m_callback);
        ZPxSelectionContext::toolOffCleanup();
    }

private:
    static void selectionChanged(void* data) {
        ZSelectionList list;
        ZGlobal::getActiveSelectionList(list);
        ZStringArray names;
        list.getSelectionStrings(names);
        std::string event = "selected";
        for (const ZString& name : names)
            event += " " + name.asStdString();
        ZPoint source;
        ZVector direction;
        if (static_cast<RecordingContext*>(data)->lastClickRay(source, direction))
            event += " x" + std::to_string(static_cast<int>(std::lround(source.x)));
        g_events.push_back(event);
    }
    ZCallbackId m_callback = 0;
};

class RecordingContextCommand : public ZPxContextCommand {
public:
    ZPxContext* makeObj() override { return new RecordingContext; }
};

ZStatus run(const std::string& command) {
    return ZGlobal::executeCommand(ZString(command), false, true);
}

class Tools : public ::testing::Test {
protected:
    void SetUp() override {
        oz::Graph::instance().clear();
        g_events.clear();
        ASSERT_TRUE(oz::cmd::ContextCommands::instance().registerCommand(
            "recordingContext", [] { return std::make_unique<RecordingContextCommand>(); }));
        ZString name;
        ASSERT_TRUE(ZGlobal::executeCommand("recordingContext", name));
        tool = name.asStdString();
    }
    void TearDown() override {
        oz::cmd::ContextCommands::instance().deregisterCommand("recordingContext");
        oz::Graph::instance().clear();
    }

    // A unit square at x = `x`, facing +Z, under a transform named `name`.
    void square(const char* name, double x) {
        const ZObject transform = ZFnDagNode().create("transform", name);
        const ZPointArray points(
            {ZPoint(x, 0, 0), ZPoint(x + 1, 0, 0), ZPoint(x + 1, 1, 0), ZPoint(x, 1, 0)});
        ZStatus status;
        ZFnMesh().create(4, 1, points, ZIntArray({4}), ZIntArray({0, 1, 2, 3}), transform, &status);
        ASSERT_TRUE(status);
    }

    std::string tool;
};

TEST_F(Tools, SetToolToSetsUpAndPutsAwayAndUndoes) {
    ASSERT_TRUE(run("setToolTo " + tool));
    ZString second;
    ASSERT_TRUE(ZGlobal::executeCommand("recordingContext", second));
    ASSERT_TRUE(run("setToolTo " + second.asStdString()));
    EXPECT_THAT(g_events, ElementsAre("setup", "cleanup", "setup"));
    ASSERT_TRUE(run("undo"));
    EXPECT_THAT(g_events, ElementsAre("setup", "cleanup", "setup", "cleanup", "setup"));
    EXPECT_FALSE(run("setToolTo noSuchContext"));
    EXPECT_EQ(g_events.size(), 5u);
}

TEST_F(Tools, AClickSelectsTheMeshUnderItAndGivesTheToolItsRay) {
    square("left", 0);
    square("right", 3);
    ASSERT_TRUE(
        run("viewCamera -orthographic true -orthographicWidth 10 -portSize 100 100 -position 2 0.5 10 "
            "-aim 2 0.5 0"));
    ASSERT_TRUE(run("setToolTo " + tool));
    // Ten pixels a unit, the left edge at x = -3.
    ASSERT_TRUE(run("viewClick -x 65 -y 50"));
    ASSERT_TRUE(run("viewClick -x 5 -y 50"));
    EXPECT_THAT(g_events, ElementsAre("setup", "selected |right x4", "selected |right x-2"))
        << "a click on nothing keeps the selection";

    ASSERT_TRUE(run("undo"));
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(g_events.back(), "selected") << "the selection and no click, as before";
    ASSERT_TRUE(run("redo"));
    EXPECT_EQ(g_events.back(), "selected |right x4");
}

TEST_F(Tools, TheViewMapsViewPointsAndWorldPointsBothWays) {
    ASSERT_TRUE(
        run("viewCamera -orthographic false -horizontalFieldOfView 60 -portSize 320 200 -position 4 5 6 "
            "-aim 0 1 -2"));
    const Z3dView view = Z3dView::active3dView();
    EXPECT_EQ(view.portWidth(), 320);
    EXPECT_EQ(view.portHeight(), 200);
    ZPoint source;
    ZVector direction;
    ASSERT_TRUE(view.viewToWorld(40, 170, source, direction));
    short x = 0, y = 0;
    ASSERT_TRUE(view.worldToView(source + direction * 25.0, x, y));
    EXPECT_EQ(x, 40);
    EXPECT_EQ(y, 170);
    EXPECT_FALSE(view.worldToView(ZPoint(8, 9, 14), x, y)) << "behind the camera";
}

TEST_F(Tools, ADegenerateCameraOrAMissingToolIsAnError) {
    EXPECT_FALSE(run("viewCamera -position 1 2 3 -aim 1 2 3"));
    EXPECT_FALSE(run("viewCamera -portSize 0 10"));
    EXPECT_FALSE(run("viewClick -x 3"));
    EXPECT_FALSE(run("dragManipulator -move 1 0 0")) << "no tool is current";
    ASSERT_TRUE(run("setToolTo " + tool));
    EXPECT_FALSE(run("dragManipulator -move 1 0 0")) << "the tool shows no manipulator";
    EXPECT_FALSE(run("dragManipulator -move 1 0 0 -scale 2 2 2"));
}

TEST_F(Tools, AToolGoesAwayWithItsCommand) {
    ASSERT_TRUE(run("setToolTo " + tool));
    oz::cmd::ContextCommands::instance().deregisterCommand("recordingContext");
    EXPECT_THAT(g_events, ElementsAre("setup", "cleanup"));
    EXPECT_FALSE(run("setToolTo " + tool));
}

} // namespace
