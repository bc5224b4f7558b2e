#include "SceneTest.h"

namespace {

class AnimationCommands : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode sceneTestNode -n n");
    }
};

TEST_F(AnimationCommands, CurrentTimeMovesTheSceneAndAnswersQueries) {
    EXPECT_EQ(run("currentTime 12"), "12");
    EXPECT_EQ(run("currentTime -q"), "12");
    run("connectAttr time1.outTime n.input");
    EXPECT_EQ(run("getAttr n.output"), "24");
    EXPECT_EQ(failure("currentTime"), "currentTime: give the time to go to, or -query");
    EXPECT_EQ(failure("currentTime soon"), "currentTime: expects one time, found soon");
}

TEST_F(AnimationCommands, KeysWithValuesEvaluateAtTheirTimes) {
    EXPECT_EQ(run("setKeyframe -t 1 -v 2 -at weight n"), "1");
    run("setKeyframe -t 11 -v 6 n.weight");
    EXPECT_EQ(run("getAttr -time 1 n.weight"), "2");
    EXPECT_EQ(run("getAttr -time 11 n.weight"), "6");
    EXPECT_EQ(run("currentTime 11; getAttr n.weight"), "6");
    EXPECT_EQ(strings("listConnections -t animCurveTU n"), strings("ls -type animCurveTU"));
    EXPECT_EQ(strings("ls -type animCurveTU").size(), 1u);
}

TEST_F(AnimationCommands, KeyingTakesTheCurrentValueAndUndoRemovesTheCurve) {
    run("setAttr n.weight 4; currentTime 5");
    run("setKeyframe n.weight");
    const std::string curve = strings("ls -type animCurveTU").at(0);
    EXPECT_EQ(failure("setAttr n.weight 9"),
              "setAttr: 'n.weight' is connected from '" + curve + ".output' and cannot be set");
    EXPECT_EQ(run("currentTime 50; getAttr n.weight"), "4");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(strings("ls -type animCurveTU"), std::vector<std::string>{});
    EXPECT_EQ(run("getAttr n.weight"), "4");
}

TEST_F(AnimationCommands, KeyingErrors) {
    EXPECT_EQ(failure("setKeyframe n.label"),
              "setKeyframe: 'n.label' cannot be keyed (it is not keyable, or another node drives it)");
    EXPECT_EQ(failure("setKeyframe ghost.weight"), "setKeyframe: No object matches name: ghost.weight");
}

TEST_F(AnimationCommands, UnitsAndPlaybackRangeAreSetAndQueried) {
    run("currentUnit -l mm -a rad -t ntsc");
    EXPECT_EQ(run("currentUnit -q -l"), "mm");
    EXPECT_EQ(run("currentUnit -q -a"), "rad");
    EXPECT_EQ(run("currentUnit -q -t"), "ntsc");
    EXPECT_EQ(failure("currentUnit -l parsec"), "currentUnit: unknown unit \"parsec\" for -linear");
    run("playbackOptions -min 5 -max 50 -ast 0 -aet 60 -l oscillate");
    EXPECT_EQ(run("playbackOptions -q -max"), "50");
    EXPECT_EQ(run("playbackOptions -q -l"), "oscillate");
    EXPECT_EQ(failure("playbackOptions -min 9 -max 2"),
              "playbackOptions: a range cannot start after it ends");
}

} // namespace
