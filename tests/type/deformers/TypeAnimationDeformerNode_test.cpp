#include "../GoldenTable.h"
#include "DeformerNodeTesting.h"

#include <OpenZyvo/ZFnArrayAttrsData.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZVectorArray.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace typetest {
namespace {

using ::testing::DoubleNear;
using ::testing::Pointwise;

class ShellDeformerNode : public DeformerNodeTest {
protected:
    void SetUp() override {
        DeformerNodeTest::SetUp();
        // "AB C": two words on one line.
        setText("41 42 20 43");
        wire("shellDeformer", "shellDeformer1");
        ASSERT_TRUE(run("connectAttr time1.outTime shellDeformer1.time"));
        ASSERT_TRUE(run("setAttr shellDeformer1.enableAnimation 1"));
        ASSERT_TRUE(run("setAttr shellDeformer1.offsetFrames 10"));
        // Y rises from 0 at frame 0 to 10 at frame 10.
        ASSERT_TRUE(run("setKeyframe -t 0 -v 0 -at animationPositionY shellDeformer1"));
        ASSERT_TRUE(run("setKeyframe -t 10 -v 10 -at animationPositionY shellDeformer1"));
    }

    // How far each character rose: the mean y offset of its vertices, and
    // whether they all rose by the same amount.
    static std::vector<double> rises(const std::string& deformer = "shellDeformer1") {
        const std::vector<ZPoint> before = points();
        const std::vector<ZPoint> after = deformed(deformer);
        EXPECT_EQ(before.size(), after.size());
        std::vector<double> out;
        for (const std::vector<int>& character : characters()) {
            const double rise = after[static_cast<std::size_t>(character[0])].y -
                                before[static_cast<std::size_t>(character[0])].y;
            for (int v : character) {
                const auto at = static_cast<std::size_t>(v);
                EXPECT_NEAR(after[at].y - before[at].y, rise, 1e-9);
                EXPECT_NEAR(after[at].x, before[at].x, 1e-9);
            }
            out.push_back(rise);
        }
        return out;
    }

    static double keyedAt(double frame) {
        return real("getAttr -t " + std::to_string(frame) + " shellDeformer1.animationPositionY");
    }
};

TEST_F(ShellDeformerNode, HasItsAttributesInOrder) {
    const ZFnDependencyNode node(nodeNamed("shellDeformer1"));
    std::vector<std::string> created;
    bool own = false;
    for (unsigned int i = 0; i < node.attributeCount(); ++i) {
        const ZFnAttribute fn(node.attribute(i));
        own = own || fn.name() == "triggeredByHOVA";
        if (own && fn.parent().isNull())
            created.push_back(fn.name().asStdString());
    }
    std::vector<std::string> expected;
    for (const GoldenRow& row : readGoldenTable("shelldeformer_attributes.tsv", 1))
        expected.push_back(row[0]);
    EXPECT_EQ(created, expected);
}

// A node type freed with its plug-in and another made at the same address must not share what the
// graph cached about the attributes their deformer base gives both.
TEST_F(ShellDeformerNode, ADeformerMadeAfterThePluginIsLoadedAgainConnectsAndMoves) {
    for (int reload = 0; reload < 3; ++reload) {
        TearDown();
        SetUp();
    }
    ASSERT_TRUE(run("currentTime 5"));
    const std::vector<double> risen = rises();
    ASSERT_FALSE(risen.empty());
    EXPECT_GT(risen.front(), 0.0);
}

TEST_F(ShellDeformerNode, TimingSwitchPrintsTheSetupAndElementTimesOfEveryFrame) {
    ::setenv("TYPE_DEFORMER_TIMING", "1", 1);
    wire("shellDeformer", "shellDeformer2");
    ::unsetenv("TYPE_DEFORMER_TIMING");
    ASSERT_TRUE(run("setAttr shellDeformer2.enableAnimation 1"));
    ASSERT_TRUE(run("setAttr shellDeformer2.animationPositionX 2"));

    testing::internal::CaptureStdout();
    deformed("shellDeformer2");
    deformed("shellDeformer1");
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_THAT(printed, testing::MatchesRegex("--------------------------\n"
                                               "Setup:\t\t[0-9.e+-]+ ms\n"
                                               "Thread:\t\t[0-9.e+-]+ ms\n"))
        << "once, for the node created with the switch on";
}

// A point stream from another node: positions, rotations in degrees, scales, and offsets that
// count only on the evaluation the stream itself triggered.
TEST_F(ShellDeformerNode, PointStreamFromAnotherNodeMovesTheCharacters) {
    const std::string source = text("createNode transform");
    ASSERT_TRUE(run("addAttr -ln points -dt arrayAttrs " + source));
    ZFnArrayAttrsData stream;
    const ZObject data = stream.create();
    stream.vectorArray("position") = ZVectorArray(std::vector<ZVector>{{1, 0, 0}, {0, 2, 0}, {0, 0, 0}});
    stream.vectorArray("rotation") = ZVectorArray(std::vector<ZVector>{{0, 0, 0}, {0, 0, 0}, {0, 0, 180}});
    // Added to the scale channels, which stand at 1.
    stream.vectorArray("scale") = ZVectorArray(std::vector<ZVector>{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    stream.vectorArray("typeOffsets") = ZVectorArray(std::vector<ZVector>{{0.5, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    ASSERT_TRUE(plugNamed(source, "points").setValue(data));
    ASSERT_TRUE(run("connectAttr " + source + ".points shellDeformer1.inputPoints"));
    // Words without a word list: no group samples the channels, whose values would replace the
    // stream's rotations and scales.
    ASSERT_TRUE(run("disconnectAttr type1.grouping shellDeformer1.grouping"));
    ASSERT_TRUE(run("setAttr shellDeformer1.animationMode 2"));
    ASSERT_TRUE(run("currentTime 0"));

    const std::vector<ZPoint> before = points();
    const auto shifts = [&](const std::vector<ZPoint>& after, int character) {
        const auto v = static_cast<std::size_t>(characters()[static_cast<std::size_t>(character)][0]);
        return ZVector(after[v].x - before[v].x, after[v].y - before[v].y, after[v].z - before[v].z);
    };
    const std::vector<ZPoint> triggered = deformed("shellDeformer1");
    EXPECT_TRUE(shifts(triggered, 0).isEquivalent(ZVector(0.5, 0, 0), 1e-9)) << "offset by typeOffsets";
    EXPECT_TRUE(shifts(triggered, 1).isEquivalent(ZVector(0, 2, 0), 1e-9));

    // Half a turn about z mirrors the character in x, whatever its pivot: taken as radians it would
    // not.
    const std::vector<int> turned = characters()[2];
    const auto a = static_cast<std::size_t>(turned.front());
    const auto b = static_cast<std::size_t>(turned.back());
    ASSERT_GT(std::abs(before[a].x - before[b].x), 0.1);
    EXPECT_NEAR(triggered[a].x - triggered[b].x, before[b].x - before[a].x, 1e-9);

    // Evaluated again for another reason, the offsets no longer count.
    ASSERT_TRUE(run("setAttr shellDeformer1.xPivotLocation 0.25"));
    EXPECT_TRUE(shifts(deformed("shellDeformer1"), 0).isEquivalent(ZVector(1, 0, 0), 1e-9));
}

// Frames reuse what the frame before wrote where an element moves as it did then; what a frame
// shows must not depend on the frames before it.
TEST_F(ShellDeformerNode, AFrameShowsTheSameWhicheverFramesCameBefore) {
    const auto at = [](double frame) {
        EXPECT_TRUE(run("currentTime " + std::to_string(frame)));
        return deformed("shellDeformer1");
    };
    at(0.0);
    const std::vector<ZPoint> fresh = at(16.0);
    // At 15 the first two characters already stand where they stay at 16.
    for (const double frame : {15.0, 5.0, 15.0, 0.0, 15.0}) {
        at(frame);
        const std::vector<ZPoint> again = at(16.0);
        ASSERT_EQ(again.size(), fresh.size());
        for (std::size_t i = 0; i < fresh.size(); ++i)
            ASSERT_TRUE(again[i] == fresh[i]) << "after frame " << frame << ", vertex " << i;
    }
}

TEST_F(ShellDeformerNode, DisabledAnimationPassesTheSolidThrough) {
    ASSERT_TRUE(run("setAttr shellDeformer1.enableAnimation 0"));
    ASSERT_TRUE(run("currentTime 5"));
    const std::vector<ZPoint> before = points();
    const std::vector<ZPoint> after = deformed("shellDeformer1");
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        ASSERT_TRUE(before[i] == after[i]) << i;
}

TEST_F(ShellDeformerNode, EachCharacterSamplesTheKeysAtItsDelayedTime) {
    ASSERT_TRUE(run("currentTime 8"));
    const std::vector<double> rose = rises();
    ASSERT_EQ(rose.size(), 3u);
    // Three characters over 10 frames: delays 0, 5 and 10.
    EXPECT_NEAR(rose[0], keyedAt(8), 1e-9);
    EXPECT_NEAR(rose[1], keyedAt(3), 1e-9);
    EXPECT_NEAR(rose[2], keyedAt(-2), 1e-9);
    EXPECT_GT(rose[0], rose[1]);
}

// Keys on another node reach the channels through plain connections, one into a channel itself and
// one into its compound: they too are read at each character's own time.
TEST_F(ShellDeformerNode, ChannelsDrivenThroughOtherNodesAreSampledAtEachDelayedTime) {
    const std::string mover = text("createNode transform");
    ASSERT_TRUE(run("setKeyframe -t 0 -v 0 -at translateX " + mover));
    ASSERT_TRUE(run("setKeyframe -t 10 -v 4 -at translateX " + mover));
    ASSERT_TRUE(run("connectAttr " + mover + ".translateX shellDeformer1.animationPositionX"));
    const std::string scaler = text("createNode transform");
    ASSERT_TRUE(run("setKeyframe -t 0 -v 1 -at scaleX " + scaler));
    ASSERT_TRUE(run("setKeyframe -t 10 -v 3 -at scaleX " + scaler));
    ASSERT_TRUE(run("connectAttr " + scaler + ".scale shellDeformer1.animationScale"));
    ASSERT_TRUE(run("currentTime 8"));

    const std::vector<ZPoint> before = points();
    const std::vector<ZPoint> after = deformed("shellDeformer1");
    const std::vector<std::vector<int>> groups = characters();
    ASSERT_EQ(groups.size(), 3u);
    // A character's leftmost and rightmost x.
    const auto extent = [](const std::vector<ZPoint>& points, const std::vector<int>& character) {
        std::pair<double, double> span{1e300, -1e300};
        for (int v : character) {
            span.first = std::min(span.first, points[static_cast<std::size_t>(v)].x);
            span.second = std::max(span.second, points[static_cast<std::size_t>(v)].x);
        }
        return span;
    };
    // Delays 0, 5 and 10 frames.
    for (const auto& [character, frame] : {std::pair{0, 8.0}, std::pair{1, 3.0}, std::pair{2, -2.0}}) {
        const std::string at = "getAttr -t " + std::to_string(frame) + " ";
        const auto [low, high] = extent(before, groups[static_cast<std::size_t>(character)]);
        const auto [movedLow, movedHigh] = extent(after, groups[static_cast<std::size_t>(character)]);
        EXPECT_NEAR((movedHigh - movedLow) / (high - low), real(at + scaler + ".scaleX"), 1e-9) << character;
        // Scaled about its own x centre, the character's centre moves by the translation alone.
        EXPECT_NEAR(0.5 * (movedLow + movedHigh) - 0.5 * (low + high), real(at + mover + ".translateX"), 1e-9)
            << character;
    }
}

TEST_F(ShellDeformerNode, ReverseOrderStartsWithTheLastCharacter) {
    ASSERT_TRUE(run("setAttr shellDeformer1.reverseOrder 1"));
    ASSERT_TRUE(run("currentTime 8"));
    const std::vector<double> rose = rises();
    ASSERT_EQ(rose.size(), 3u);
    EXPECT_NEAR(rose[0], keyedAt(-2), 1e-9);
    EXPECT_NEAR(rose[2], keyedAt(8), 1e-9);
}

TEST_F(ShellDeformerNode, RandomOrderIsTheSameOnEveryEvaluation) {
    ASSERT_TRUE(run("setAttr shellDeformer1.randomDelay 1"));
    ASSERT_TRUE(run("setAttr shellDeformer1.randomSeed 4"));
    ASSERT_TRUE(run("currentTime 6"));
    const std::vector<double> first = rises();
    ASSERT_TRUE(run("currentTime 2"));
    rises();
    ASSERT_TRUE(run("currentTime 6"));
    EXPECT_EQ(rises(), first);
    // The delays are a permutation of those in text order.
    std::vector<double> sorted = first;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_THAT(sorted, Pointwise(DoubleNear(1e-9), {keyedAt(-4), keyedAt(1), keyedAt(6)}));
}

TEST_F(ShellDeformerNode, WordsMoveAsOne) {
    ASSERT_TRUE(run("setAttr shellDeformer1.animationMode 2"));
    ASSERT_TRUE(run("currentTime 8"));
    const std::vector<double> rose = rises();
    ASSERT_EQ(rose.size(), 3u);
    // Two words over 10 frames: delays 0 and 10.
    EXPECT_NEAR(rose[0], keyedAt(8), 1e-9);
    EXPECT_NEAR(rose[1], keyedAt(8), 1e-9);
    EXPECT_NEAR(rose[2], keyedAt(-2), 1e-9);
}

TEST_F(ShellDeformerNode, WithoutGroupsEveryShellIsACharacter) {
    ASSERT_TRUE(run("disconnectAttr typeExtrude1.vertexGroupIds shellDeformer1.vertexGroupIds"));
    ASSERT_TRUE(run("disconnectAttr type1.grouping shellDeformer1.grouping"));
    ASSERT_TRUE(run("setAttr shellDeformer1.enablePivotDisplay 1"));
    ASSERT_TRUE(run("currentTime 8"));
    EXPECT_EQ(rises().size(), 3u);
    EXPECT_EQ(vectors("shellDeformer1", "rotationPivotPointsPP").size(), 3u);
    // "i" has two shells, so two elements; the dot lags behind the stem.
    setText("69");
    ASSERT_TRUE(run("currentTime 8"));
    EXPECT_EQ(vectors("shellDeformer1", "rotationPivotPointsPP").size(), 2u);
}

TEST_F(ShellDeformerNode, OnePerParticleOffsetMovesEveryCharacter) {
    ASSERT_TRUE(run("currentTime -20"));
    const ZObject offsets = ZFnVectorArrayData().create(ZVectorArray({ZVector(0, 3, 0)}));
    ASSERT_TRUE(plugNamed("shellDeformer1", "positionInPP").setValue(offsets));
    const std::vector<double> rose = rises();
    ASSERT_EQ(rose.size(), 3u);
    for (double rise : rose)
        EXPECT_NEAR(rise, 3.0 + keyedAt(-20), 1e-9);
}

TEST_F(ShellDeformerNode, PivotOutputsOnlyWhenShown) {
    ASSERT_TRUE(run("currentTime 4"));
    EXPECT_TRUE(vectors("shellDeformer1", "scalePivotPointsPP").empty());
    ASSERT_TRUE(run("setAttr shellDeformer1.enablePivotDisplay 1"));
    ASSERT_TRUE(run("setAttr shellDeformer1.xPivotLocation 0"));
    const std::vector<ZVector> pivots = vectors("shellDeformer1", "scalePivotPointsPP");
    ASSERT_EQ(pivots.size(), 3u);
    const std::vector<ZPoint> before = points();
    const std::vector<std::vector<int>> groups = characters();
    ASSERT_EQ(groups.size(), 3u);
    double left = 1e300;
    for (int v : groups[1])
        left = std::min(left, before[static_cast<std::size_t>(v)].x);
    EXPECT_NEAR(pivots[1].x, left, 1e-9);
}

} // namespace
} // namespace typetest
