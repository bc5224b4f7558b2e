#include "NodesScene.h"
#include "graph/Graph.h"
#include "nodes/ActiveSelection.h"

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringArray.h>

namespace nodestest {
namespace {

class SelectionList : public NodesTest {
protected:
    void SetUp() override {
        NodesTest::SetUp();
        group = createDag("transform", "group");
        ball = createDag("transform", "ball", group);
        ballShape = createDag("mesh", "ballShape", ball);
        box = createDag("transform", "box");
        id = createNode("groupId", "bevelId");
    }

    std::vector<std::string> strings(const ZSelectionList& list) {
        ZStringArray out;
        EXPECT_TRUE(list.getSelectionStrings(out));
        std::vector<std::string> result;
        for (const ZString& s : out)
            result.push_back(s.asStdString());
        return result;
    }

    ZObject group, ball, ballShape, box, id;
};

TEST_F(SelectionList, NamesPatternsPathsAndPlugs) {
    ZSelectionList list;
    ASSERT_TRUE(list.add("b*x"));
    ASSERT_TRUE(list.add("|group|ball|ballShape"));
    ASSERT_TRUE(list.add("ball.translateX"));
    ASSERT_TRUE(list.add("ballShape.instObjGroups[0].objectGroups[2].objectGroupId"));
    ASSERT_TRUE(list.add("bevelId"));
    ASSERT_TRUE(list.add("box")) << "already there: nothing added";
    EXPECT_EQ(list.add("nothing*"), ZStatus::kNotFound);
    EXPECT_EQ(list.add("|ball"), ZStatus::kNotFound) << "ball is not at the top";
    EXPECT_EQ(list.add("ball.noSuchAttribute"), ZStatus::kNotFound);

    EXPECT_EQ(strings(list), (std::vector<std::string>{
                                 "|box", "|group|ball|ballShape", "ball.translateX",
                                 "ballShape.instObjGroups[0].objectGroups[2].objectGroupId", "bevelId"}));
    ZObject node;
    ASSERT_TRUE(list.getDependNode(2, node));
    EXPECT_TRUE(node == ball) << "a plug item gives its node";
    ZPlug item;
    EXPECT_FALSE(list.getPlug(0, item));
    ASSERT_TRUE(list.getPlug(2, item));
    EXPECT_EQ(item.name(), ZString("ball.translateX"));
    ZDagPath path;
    ASSERT_TRUE(list.getDagPath(1, path));
    EXPECT_EQ(path.length(), 3u);
    EXPECT_FALSE(list.getDagPath(4, path)) << "groupId nodes are not in the DAG";
    EXPECT_FALSE(list.getDependNode(5, node));
}

TEST_F(SelectionList, RemoveMergeAndDeletedNodes) {
    ZSelectionList first, second;
    first.add(group);
    first.add(ball);
    second.add(ball);
    second.add(ZFnDagNode(ballShape).dagPath());
    ASSERT_TRUE(first.merge(second));
    EXPECT_EQ(first.length(), 3u);
    EXPECT_TRUE(first.hasItem(ballShape));

    ASSERT_TRUE(first.remove(0));
    EXPECT_FALSE(first.hasItem(group));
    EXPECT_FALSE(first.remove(7));

    ASSERT_TRUE(oz::Graph::instance().deleteNode(*oz::nodeOf(ball)));
    EXPECT_EQ(first.length(), 0u) << "ball went, and its shape with it";
    ASSERT_TRUE(first.add(box));
    ASSERT_TRUE(first.clear());
    EXPECT_TRUE(first.isEmpty());
}

TEST_F(SelectionList, ActiveSelectionRoundTrip) {
    ZSelectionList chosen;
    chosen.add("ball");
    chosen.add("bevelId.groupId");
    oz::nodes::setActiveSelection(chosen);
    chosen.clear();

    ZSelectionList active = oz::nodes::activeSelection();
    EXPECT_EQ(strings(active), (std::vector<std::string>{"|group|ball", "bevelId.groupId"}));
    active.clear();
    EXPECT_EQ(oz::nodes::activeSelection().length(), 2u) << "callers get a copy";

    oz::Graph::instance().clear();
    EXPECT_TRUE(oz::nodes::activeSelection().isEmpty());
}

} // namespace
} // namespace nodestest
