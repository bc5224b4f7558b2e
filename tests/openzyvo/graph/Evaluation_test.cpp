#include "TestNodes.h"

#include <OpenZyvo/ZDGModifier.h>

using namespace graphtest;

namespace {

void connect(const ZPlug& src, const ZPlug& dst) {
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.connect(src, dst));
    ASSERT_TRUE(modifier.doIt());
}

} // namespace

class Evaluation : public GraphTest {};

TEST_F(Evaluation, ComputesOnceAndCachesUntilAnInputChanges) {
    ZObject node = create("graphTestAdder");
    plug(node, "input").setValue(2.0);
    plug(node, "offset").setValue(0.5);
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 2.5);
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 2.5);
    EXPECT_EQ(user<Adder>(node)->computes, 1);

    plug(node, "offset").setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 3.0);
    EXPECT_EQ(user<Adder>(node)->computes, 2);
}

TEST_F(Evaluation, PullsThroughAChainAndRecomputesOnlyWhatChanged) {
    ZObject a = create("graphTestAdder"), b = create("graphTestAdder"), c = create("graphTestAdder");
    connect(plug(a, "output"), plug(b, "input"));
    connect(plug(b, "output"), plug(c, "input"));
    plug(a, "input").setValue(1.0);
    plug(b, "offset").setValue(10.0);
    EXPECT_DOUBLE_EQ(plug(c, "output").asDouble(), 11.0);

    plug(c, "offset").setValue(100.0);
    EXPECT_DOUBLE_EQ(plug(c, "output").asDouble(), 111.0);
    EXPECT_EQ(user<Adder>(a)->computes, 1);
    EXPECT_EQ(user<Adder>(b)->computes, 1);
    EXPECT_EQ(user<Adder>(c)->computes, 2);
}

TEST_F(Evaluation, AnOutputLeftDirtyIsComputedAgainAndStillFeedsDownstream) {
    ZObject sloppy = create("graphTestSloppy"), adder = create("graphTestAdder");
    connect(plug(sloppy, "output"), plug(adder, "input"));
    plug(sloppy, "input").setValue(3.0);
    EXPECT_DOUBLE_EQ(plug(sloppy, "output").asDouble(), 6.0);
    EXPECT_DOUBLE_EQ(plug(sloppy, "output").asDouble(), 6.0);
    EXPECT_EQ(user<Sloppy>(sloppy)->computes, 2);

    EXPECT_DOUBLE_EQ(plug(adder, "output").asDouble(), 6.0);
    plug(sloppy, "input").setValue(4.0);
    EXPECT_DOUBLE_EQ(plug(adder, "output").asDouble(), 8.0);
    plug(sloppy, "input").setValue(5.0);
    EXPECT_DOUBLE_EQ(plug(adder, "output").asDouble(), 10.0);
}

TEST_F(Evaluation, UnknownParameterFallsBackToTheStoredValue) {
    ZObject node = create("graphTestPassive");
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 5.0);
    EXPECT_TRUE(plug(node, "output").setValue(7.0));
    plug(node, "input").setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 7.0);
    const int asked = user<Passive>(node)->computes;
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 7.0);
    EXPECT_EQ(user<Passive>(node)->computes, asked) << "the fallback value is clean";
}

TEST_F(Evaluation, APreEvaluationDirtySetStaysSmallForLongArrayEdits) {
    ZObject node = create("graphTestSummer");
    ZPlug values(node, Summer::values);
    for (unsigned int i = 0; i < 5000; ++i)
        values.elementByLogicalIndex(i).setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 5000.0);
}

TEST_F(Evaluation, AFailedComputeKeepsThePreviousValue) {
    ZObject node = create("graphTestFailing");
    plug(node, "input").setValue(1.0);
    testing::internal::CaptureStderr();
    EXPECT_DOUBLE_EQ(plug(node, "output").asDouble(), 0.0);
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find("output"), std::string::npos) << report;
}

TEST_F(Evaluation, DirtinessFollowsCompoundChildrenAndArrayElements) {
    ZObject node = create("graphTestSummer");
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 0.0);

    plug(node, "positionY").setValue(2.0);
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 2.0);
    plug(node, "values[3]").setValue(4.0);
    plug(node, "values[7]").setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 7.0);
    plug(node, "groups[2].weight").setValue(0.5);
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 7.5);
    // A child nested two arrays deep dirties the whole compound input.
    const int before = user<Summer>(node)->computes;
    plug(node, "groups[2].members[4].id").setValue(9.0);
    EXPECT_DOUBLE_EQ(plug(node, "sum").asDouble(), 7.5);
    EXPECT_EQ(user<Summer>(node)->computes, before + 1);
}

TEST_F(Evaluation, ConnectionsCarryCompoundsChildrenAndElements) {
    ZObject from = create("graphTestSummer"), to = create("graphTestSummer");
    ZObject adder = create("graphTestAdder");
    connect(plug(from, "position"), plug(to, "position"));
    connect(plug(adder, "output"), plug(to, "values[5]"));
    plug(from, "positionZ").setValue(3.0);
    plug(adder, "input").setValue(1.5);
    EXPECT_DOUBLE_EQ(plug(to, "sum").asDouble(), 4.5);
    EXPECT_DOUBLE_EQ(plug(to, "positionZ").asDouble(), 3.0);

    plug(from, "positionX").setValue(1.0);
    plug(adder, "offset").setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(to, "sum").asDouble(), 6.5);
    EXPECT_FALSE(plug(to, "positionX").setValue(2.0)) << "a driven plug cannot be set";
}

TEST_F(Evaluation, DisconnectingKeepsTheLastValue) {
    ZObject a = create("graphTestAdder"), b = create("graphTestAdder");
    connect(plug(a, "output"), plug(b, "input"));
    plug(a, "input").setValue(4.0);
    EXPECT_DOUBLE_EQ(plug(b, "output").asDouble(), 4.0);
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.disconnect(plug(a, "output"), plug(b, "input")));
    ASSERT_TRUE(modifier.doIt());
    plug(a, "input").setValue(8.0);
    EXPECT_DOUBLE_EQ(plug(b, "output").asDouble(), 4.0);
    EXPECT_TRUE(plug(b, "input").setValue(1.0));
    EXPECT_DOUBLE_EQ(plug(b, "output").asDouble(), 1.0);
}

TEST_F(Evaluation, SetDependentsDirtyAddsPlugsAndPreEvaluationSeesTheDirtyOnes) {
    ZObject node = create("graphTestWatcher");
    Watcher* watcher = user<Watcher>(node);
    plug(node, "b").setValue(2.0);
    EXPECT_DOUBLE_EQ(plug(node, "extra").asDouble(), 20.0);
    plug(node, "b").setValue(3.0);
    EXPECT_DOUBLE_EQ(plug(node, "extra").asDouble(), 30.0) << "extra is dirtied only by setDependentsDirty";
    EXPECT_EQ(watcher->preEvaluations, 2);
    EXPECT_TRUE(watcher->sawB);
    EXPECT_FALSE(watcher->sawA);

    plug(node, "a").setValue(1.0);
    EXPECT_DOUBLE_EQ(plug(node, "out").asDouble(), 1.0);
    EXPECT_EQ(watcher->preEvaluations, 3);
    EXPECT_TRUE(watcher->sawA);
    EXPECT_FALSE(watcher->sawB) << "the dirty set starts afresh after each evaluation";

    EXPECT_DOUBLE_EQ(plug(node, "out").asDouble(), 1.0);
    EXPECT_EQ(watcher->preEvaluations, 3) << "nothing changed, no preEvaluation";
}

TEST_F(Evaluation, CyclesEvaluateWithoutHanging) {
    ZObject a = create("graphTestAdder"), b = create("graphTestAdder");
    connect(plug(a, "output"), plug(b, "input"));
    connect(plug(b, "output"), plug(a, "input"));
    plug(a, "offset").setValue(1.0);
    testing::internal::CaptureStderr();
    const double first = plug(b, "output").asDouble();
    plug(b, "offset").setValue(1.0);
    const double second = plug(a, "output").asDouble();
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(std::isfinite(first) && std::isfinite(second));
    EXPECT_NE(report.find("cycle"), std::string::npos) << report;
}

TEST_F(Evaluation, LongChainsEvaluateWithoutExhaustingTheStack) {
    constexpr int length = 6000;
    std::vector<ZObject> nodes;
    ZDGModifier modifier;
    for (int i = 0; i < length; ++i) {
        nodes.push_back(create("graphTestAdder"));
        if (i > 0)
            modifier.connect(ZPlug(nodes[i - 1], Adder::output), ZPlug(nodes[i], Adder::input));
        ZPlug(nodes[i], Adder::offset).setValue(1.0);
    }
    ASSERT_TRUE(modifier.doIt());
    plug(nodes.front(), "input").setValue(0.5);
    EXPECT_DOUBLE_EQ(ZPlug(nodes.back(), Adder::output).asDouble(), length + 0.5);
    for (const ZObject& node : nodes)
        ASSERT_EQ(user<Adder>(node)->computes, 1);
}
