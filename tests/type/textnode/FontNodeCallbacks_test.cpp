#include "../plugin/PluginTesting.h"

#include <OpenZyvo/ZCallbackIdArray.h>
#include <OpenZyvo/ZMessage.h>
#include <OpenZyvo/ZSelectionList.h>

// What a type node does when its settings change: generators tie it to the
// scene time, and a new manipulator level refreshes the manipulator.
namespace typetest {
namespace {

class FontNodeCallbacks : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_EQ(text("createNode type"), "type1");
    }

    static std::vector<std::string> timeSources(const std::string& node = "type1") {
        return texts("listConnections -s 1 -d 0 -p 1 " + node + ".time");
    }
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(FontNodeCallbacks, AGeneratorTiesTheNodeToTheSceneTimeAndOffLetsGo) {
    ASSERT_TRUE(run("setAttr type1.generator 6"));
    EXPECT_THAT(timeSources(), ElementsAre("time1.outTime"));

    // Another generator finds the time already connected and leaves it be.
    testing::internal::CaptureStderr();
    ASSERT_TRUE(run("setAttr type1.generator 9"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(timeSources(), ElementsAre("time1.outTime"));

    ASSERT_TRUE(run("setAttr type1.generator 0"));
    EXPECT_THAT(timeSources(), IsEmpty());
}

// The connection is queued: it is made once the command that set the
// generator has finished, not while the host is still setting it.
TEST_F(FontNodeCallbacks, TheConnectionWaitsForTheHostToBeIdle) {
    python("import zyvo.cmds, __main__\n"
           "zyvo.cmds.setAttr('type1.generator', 1)\n"
           "__main__.whileSetting = zyvo.cmds.listConnections('type1.time', s=True, d=False)");
    EXPECT_EQ(python("repr(__main__.whileSetting)"), "[]");
    EXPECT_THAT(timeSources(), ElementsAre("time1.outTime"));
}

TEST_F(FontNodeCallbacks, ASourceOtherThanATimeNodeStaysConnected) {
    ASSERT_TRUE(run("createNode transform -n clock1"));
    ASSERT_TRUE(run("addAttr -ln now -at time clock1"));
    ASSERT_TRUE(run("connectAttr clock1.now type1.time"));
    ASSERT_TRUE(run("setAttr type1.generator 2"));
    ASSERT_TRUE(run("setAttr type1.generator 0"));
    EXPECT_THAT(timeSources(), ElementsAre("clock1.now"));
}

TEST_F(FontNodeCallbacks, EachNodeLooksAfterItsOwnTime) {
    ASSERT_EQ(text("createNode type"), "type2");
    ASSERT_TRUE(run("setAttr type2.generator 8"));
    EXPECT_THAT(timeSources("type2"), ElementsAre("time1.outTime"));
    EXPECT_THAT(timeSources("type1"), IsEmpty());
    EXPECT_EQ(number("getAttr type1.generator"), 0);
}

TEST_F(FontNodeCallbacks, AManipulatorLevelChangeAsksTheScriptsToRefreshTheManipulator) {
    python("import zyvo.cmds, __main__\n"
           "__main__.deferred = []\n"
           "zyvo.cmds.evalDeferred = lambda script, **flags: __main__.deferred.append(script)");
    ASSERT_TRUE(run("setAttr type1.manipulatorMode 0"));
    EXPECT_EQ(python("__main__.deferred"), "['import zyvo.app.type.typeUtilityScripts; "
                                           "zyvo.app.type.typeUtilityScripts.flipTypeManipulator()']");
    python("exec(__main__.deferred[0])");
}

TEST_F(FontNodeCallbacks, EnumsRefuseValuesWithoutAField) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("setAttr type1.alignmentMode 0"));
    EXPECT_FALSE(run("setAttr type1.generator 3"));
    EXPECT_FALSE(run("setAttr type1.manipulatorMode 3"));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(number("getAttr type1.alignmentMode"), 1);
    EXPECT_EQ(number("getAttr type1.generator"), 0);
    EXPECT_EQ(number("getAttr type1.manipulatorMode"), 1);
    EXPECT_THAT(timeSources(), IsEmpty());
    ASSERT_TRUE(run("setAttr type1.alignmentMode \"Right\""));
    EXPECT_EQ(number("getAttr type1.alignmentMode"), 3);
}

// randomSeed starts below its minimum and keeps that default until edited.
TEST_F(FontNodeCallbacks, HardLimitsClampWhatIsSet) {
    EXPECT_EQ(number("getAttr type1.randomSeed"), 0);
    ASSERT_TRUE(run("setAttr type1.randomSeed -5"));
    EXPECT_EQ(number("getAttr type1.randomSeed"), 1);
    ASSERT_TRUE(run("setAttr type1.curveResolution 500"));
    EXPECT_EQ(number("getAttr type1.curveResolution"), 100);
    ASSERT_TRUE(run("setAttr type1.changeRate 0"));
    EXPECT_EQ(number("getAttr type1.changeRate"), 1);
}

TEST_F(FontNodeCallbacks, EachNodeWatchesItselfWithOneCallback) {
    ZSelectionList list;
    ASSERT_TRUE(list.add("type1"));
    ZObject node;
    ASSERT_TRUE(list.getDependNode(0, node));
    ZCallbackIdArray ids;
    ASSERT_TRUE(ZMessage::nodeCallbacks(node, ids));
    EXPECT_EQ(ids.length(), 1u);
}

// Deleting a node takes its callback with it; undoing the delete and
// setting a generator again must neither crash nor act twice.
TEST_F(FontNodeCallbacks, DeletedNodesLeaveNothingBehind) {
    ASSERT_TRUE(ZGlobal::executeCommand("delete type1", false, true));
    ASSERT_TRUE(run("createNode type -n type1"));
    ASSERT_TRUE(run("setAttr type1.generator 1"));
    EXPECT_THAT(timeSources(), ElementsAre("time1.outTime"));
}

} // namespace
} // namespace typetest
