#include "PluginTesting.h"

#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <initializer_list>
#include <utility>

// The text a type node's compute starts from, read through a test node that
// shares the type node's code and attributes (probe/TextSourceProbe.cpp).
namespace typetest {
namespace {

class NodeTextSource : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(ZFileIO::newFile(true));
        ASSERT_TRUE(run("loadPlugin \"" TYPE_TEXT_SOURCE_PROBE "\""));
        ASSERT_TRUE(run("currentUnit -t film"));
        ASSERT_EQ(text("createNode textSourceProbe -n probe1"), "probe1");
    }

    void TearDown() override {
        ZFileIO::newFile(true);
        run("unloadPlugin TextSourceProbe");
    }

    static std::string hexText() { return text("getAttr probe1.hexText"); }

    // "percent" is not keyable for the user; the host's scripts animate it
    // through the API.
    static void animatePercent(std::initializer_list<std::pair<double, double>> keys) {
        ZSelectionList list;
        ZPlug percent;
        ASSERT_TRUE(list.add("probe1.percent"));
        ASSERT_TRUE(list.getPlug(0, percent));
        ZFnAnimCurve curve;
        ZStatus status;
        curve.create(percent, nullptr, &status);
        ASSERT_TRUE(status);
        for (const auto& [frame, value] : keys)
            ASSERT_TRUE(curve.addKey(ZTime(frame), value));
    }
};

TEST_F(NodeTextSource, WithoutAGeneratorTheTextInputIsUsed) {
    EXPECT_EQ(hexText(), "33 44 20 54 79 70 65");
    ASSERT_TRUE(run("setAttr -type \"string\" probe1.textInput \"41 42\""));
    EXPECT_EQ(hexText(), "41 42");
}

// Switching a generator on ties the node to the scene time, and the text
// follows it in the user's time unit.
TEST_F(NodeTextSource, FrameNumberFollowsTheSceneTime) {
    ASSERT_TRUE(run("setAttr probe1.generator 1"));
    ASSERT_TRUE(run("setAttr probe1.changeRate 5"));
    ASSERT_TRUE(run("currentTime 37"));
    EXPECT_EQ(hexText(), "30 30 33 35 "); // "0035"
    ASSERT_TRUE(run("currentTime 41"));
    EXPECT_EQ(hexText(), "30 30 34 30 "); // "0040"
}

TEST_F(NodeTextSource, SceneTimeCountsSecondsOfTheUsersUnit) {
    ASSERT_TRUE(run("setAttr probe1.generator 2"));
    ASSERT_TRUE(run("setAttr probe1.decimalPlaces 0"));
    ASSERT_TRUE(run("setAttr probe1.length 2"));
    ASSERT_TRUE(run("currentTime 36"));
    EXPECT_EQ(hexText(), "30 30 32 "); // 36 frames of film: "002"
}

// Expressions run after the preamble, so the modules it imports are there.
TEST_F(NodeTextSource, PythonExpressionsSeeThePreambleAndFailToNothing) {
    ASSERT_TRUE(run("setAttr probe1.generator 9"));
    ASSERT_TRUE(run("setAttr -type \"string\" probe1.pythonExpression \"string.ascii_uppercase[:3]\""));
    EXPECT_EQ(hexText(), "41 42 43 ");

    ASSERT_TRUE(run("setAttr -type \"string\" probe1.pythonExpression \"1/0\""));
    testing::internal::CaptureStderr();
    EXPECT_EQ(hexText(), "");
    testing::internal::GetCapturedStderr();
}

// The enum offers no field for the clock, but a plain integer driving the
// plug reaches its routine.
TEST_F(NodeTextSource, ValuesWithoutAFieldAreReachedThroughAConnection) {
    ASSERT_TRUE(run("addAttr -ln mode -at long -dv 3 probe1"));
    ASSERT_TRUE(run("connectAttr probe1.mode probe1.generator"));
    EXPECT_EQ(number("getAttr probe1.generator"), 3);
    EXPECT_NE(hexText().find("3a "), std::string::npos) << hexText(); // the ':' of the time of day
}

// Each character reads the "percent" curve at its own time: with a delay of
// 10 frames the second character reads it 10 frames earlier than the first.
TEST_F(NodeTextSource, AnimatedTextReadsThePercentCurveAtEachCharactersTime) {
    ASSERT_TRUE(run("setAttr -type \"string\" probe1.textInput \"41 42\""));
    ASSERT_TRUE(run("setAttr probe1.generator 8"));
    ASSERT_TRUE(run("setAttr probe1.delay 10"));
    animatePercent({{10.0, 60.0}, {20.0, 0.0}});
    ASSERT_TRUE(run("currentTime 20"));
    const std::string shown = hexText();
    EXPECT_EQ(shown.substr(0, 3), "41 ") << shown;
    EXPECT_NE(shown.substr(3), "42 ") << shown;
    ASSERT_TRUE(run("currentTime 30"));
    EXPECT_EQ(hexText(), "41 42 ");
}

} // namespace
} // namespace typetest
