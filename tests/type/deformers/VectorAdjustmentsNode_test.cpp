#include "DeformerNodeTesting.h"

namespace typetest {
namespace {

class VectorAdjustNode : public DeformerNodeTest {
protected:
    void SetUp() override {
        DeformerNodeTest::SetUp();
        // "AB C": two words on one line.
        setText("41 42 20 43");
        wire("vectorAdjust", "vectorAdjust1");
    }

    static void setVectors(const std::string& attribute, const std::vector<ZVector>& values) {
        const ZObject data = ZFnVectorArrayData().create(ZVectorArray(values));
        ASSERT_TRUE(plugNamed("vectorAdjust1", attribute).setValue(data)) << attribute;
    }

    // The leftmost x of each character after the deformer.
    static std::vector<double> lefts() {
        const std::vector<ZPoint> after = deformed("vectorAdjust1");
        std::vector<double> out;
        for (const std::vector<int>& character : characters()) {
            double left = 1e300;
            for (int v : character)
                left = std::min(left, after[static_cast<std::size_t>(v)].x);
            out.push_back(left);
        }
        return out;
    }
};

TEST_F(VectorAdjustNode, NothingStoredPassesTheSolidThroughAndDescribesEachCharacter) {
    const std::vector<ZPoint> before = points();
    const std::vector<ZPoint> after = deformed("vectorAdjust1");
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        ASSERT_TRUE(before[i] == after[i]) << i;
    const std::vector<ZVector> boxes = vectors("vectorAdjust1", "boundingBoxes");
    const std::vector<ZVector> positions = vectors("vectorAdjust1", "shellPositions");
    ASSERT_EQ(positions.size(), 3u);
    ASSERT_EQ(boxes.size(), 6u);
    const std::vector<std::vector<int>> groups = characters();
    for (std::size_t c = 0; c < groups.size(); ++c) {
        double left = 1e300;
        double right = -1e300;
        for (int v : groups[c]) {
            left = std::min(left, before[static_cast<std::size_t>(v)].x);
            right = std::max(right, before[static_cast<std::size_t>(v)].x);
        }
        EXPECT_NEAR(boxes[2 * c].x, left, 1e-9);
        EXPECT_NEAR(boxes[2 * c + 1].x, right, 1e-9);
        EXPECT_NEAR(positions[c].x, left, 1e-9);
    }
}

// Each frame starts from the input again: an adjustment taken back, or a character that no line
// holds any more, leaves nothing of an earlier frame behind.
TEST_F(VectorAdjustNode, AdjustmentsTakenBackLeaveTheSolidAsItCame) {
    const std::vector<ZPoint> before = points();
    const auto expectUnmoved = [&] {
        const std::vector<ZPoint> after = deformed("vectorAdjust1");
        ASSERT_EQ(before.size(), after.size());
        for (std::size_t i = 0; i < before.size(); ++i)
            ASSERT_TRUE(before[i] == after[i]) << i;
    };
    setVectors("manipulatorPositionsPP", {{1, 0, 0}, {0, 2, 0}, {0, 0, 3}});
    setVectors("manipulatorScalesPP", {{0.5, 0.5, 0.5}, {0, 0, 0}, {0, 0, 0}});
    ASSERT_FALSE(deformed("vectorAdjust1") == before);
    setVectors("manipulatorPositionsPP", {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    setVectors("manipulatorScalesPP", {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    expectUnmoved();

    setVectors("manipulatorPositionsPP", {{1, 0, 0}, {1, 0, 0}, {1, 0, 0}});
    ASSERT_FALSE(deformed("vectorAdjust1") == before);
    // One line of one character: the other two are no line's any more.
    ASSERT_TRUE(run("disconnectAttr type1.grouping vectorAdjust1.grouping"));
    const ZObject one = ZFnDoubleArrayData().create(ZDoubleArray(std::vector<double>{1.0}));
    for (const char* grouping : {"solidsPerCharacter", "solidsPerWord", "solidsPerLine"})
        ASSERT_TRUE(plugNamed("vectorAdjust1", grouping).setValue(one));
    setVectors("manipulatorPositionsPP", {{0, 0, 0}});
    expectUnmoved();
}

TEST_F(VectorAdjustNode, MovingTheFirstWordMovesTheLaterWordsAlong) {
    const std::vector<double> before = lefts();
    setVectors("manipulatorWordPositionsPP", {{2, 0, 0}, {0, 0, 0}});
    const std::vector<double> after = lefts();
    ASSERT_EQ(after.size(), 3u);
    for (std::size_t c = 0; c < 3; ++c)
        EXPECT_NEAR(after[c] - before[c], 2.0, 1e-9) << c;
    // The published boxes follow.
    EXPECT_NEAR(vectors("vectorAdjust1", "boundingBoxes")[4].x, after[2], 1e-9);
}

TEST_F(VectorAdjustNode, CentredLinesStayCentredAsTheyGrow) {
    ASSERT_TRUE(run("setAttr vectorAdjust1.alignmentMode 2"));
    const ZObject offsets = ZFnDoubleArrayData().create(ZDoubleArray({0.0}));
    ASSERT_TRUE(plugNamed("vectorAdjust1", "alignmentAdjustments").setValue(offsets));
    const std::vector<double> before = lefts();
    setVectors("manipulatorPositionsPP", {{1, 0, 0}, {0, 0, 0}, {0, 0, 0}});
    const std::vector<double> after = lefts();
    // Moving the first character one unit right pushes the others along,
    // and centring takes half of the line's growth back from all of them.
    EXPECT_NEAR(after[0] - before[0], 0.5, 1e-9);
    EXPECT_NEAR(after[1] - before[1], 0.5, 1e-9);
    EXPECT_NEAR(after[2] - before[2], 0.5, 1e-9);
}

} // namespace
} // namespace typetest
