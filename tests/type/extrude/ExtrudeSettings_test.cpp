#include "extrude/ExtrudeSettings.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace type {
namespace {

// The user's "Outer" is the internal outer bevel only while its own switch is
// on; the front-bevel switch does not stand in for it.
TEST(BevelStyle, OuterNeedsTheOuterSwitchWhateverTheFrontSwitchSays) {
    EXPECT_EQ(resolveBevelStyle(1, true, false), InternalBevel::kOuter);
    EXPECT_EQ(resolveBevelStyle(1, false, true), InternalBevel::kNone);
    EXPECT_EQ(resolveBevelStyle(1, false, false), InternalBevel::kNone);
}

TEST(BevelStyle, InnerNeedsTheFrontSwitchWhateverTheOuterSwitchSays) {
    EXPECT_EQ(resolveBevelStyle(2, false, true), InternalBevel::kInner);
    EXPECT_EQ(resolveBevelStyle(2, true, false), InternalBevel::kNone);
    EXPECT_EQ(resolveBevelStyle(2, true, true), InternalBevel::kInner);
}

TEST(BevelStyle, ValuesOutsideTheFieldsBuildNoBevel) {
    EXPECT_EQ(resolveBevelStyle(0, true, true), InternalBevel::kNone);
    EXPECT_EQ(resolveBevelStyle(7, true, true), InternalBevel::kNone);
}

ExtrudeAttributes distinctBevels() {
    ExtrudeAttributes a;
    a.bevelDistance = 0.1f;
    a.bevelDivisions = 3;
    a.bevelOffset = 0.2f;
    a.backBevelDistance = 0.7f;
    a.backBevelDivisions = 9;
    a.backBevelOffset = 0.8f;
    return a;
}

TEST(ExtrudeSettings, RearBevelUsesFrontTakesDistanceDivisionsAndOffsetOfTheFront) {
    ExtrudeAttributes a = distinctBevels();
    a.rearBevelUsesFront = true;
    const ExtrudeSettings s = resolveExtrudeSettings(a);
    EXPECT_TRUE(s.rearUsesFront);
    EXPECT_DOUBLE_EQ(s.backBevelDistance, s.bevelDistance);
    EXPECT_EQ(s.backBevelDivisions, 3);
    EXPECT_DOUBLE_EQ(s.backBevelOffset, s.bevelOffset);
}

TEST(ExtrudeSettings, BackBevelKeepsItsOwnValuesOtherwise) {
    const ExtrudeSettings s = resolveExtrudeSettings(distinctBevels());
    EXPECT_FLOAT_EQ(static_cast<float>(s.backBevelDistance), 0.7f);
    EXPECT_EQ(s.backBevelDivisions, 9);
    EXPECT_FLOAT_EQ(static_cast<float>(s.backBevelOffset), 0.8f);
}

// Scripts can set values past an attribute's minimum and soft range; the
// builders still get counts they can work with and bounded memory.
TEST(ExtrudeSettings, CountsSetThroughScriptingAreBroughtIntoRange) {
    ExtrudeAttributes a;
    a.extrudeDivisions = 0;
    a.bevelDivisions = -5;
    a.backBevelDivisions = 1 << 30;
    a.gridSize = 0;
    ExtrudeSettings s = resolveExtrudeSettings(a);
    EXPECT_EQ(s.extrudeDivisions, 1);
    EXPECT_EQ(s.bevelDivisions, 1);
    EXPECT_EQ(s.backBevelDivisions, kMaxDivisions);
    EXPECT_EQ(s.gridSize, 1);
    a.gridSize = 100000;
    s = resolveExtrudeSettings(a);
    EXPECT_EQ(s.gridSize, kMaxGridSize);
}

TEST(ExtrudeSettings, DistancesThatAreNotNumbersCountAsZeroAndHugeOnesAreBounded) {
    ExtrudeAttributes a;
    a.extrudeDistance = std::numeric_limits<float>::quiet_NaN();
    a.bevelDistance = std::numeric_limits<float>::infinity();
    a.extrudeOffset = -std::numeric_limits<float>::infinity();
    const ExtrudeSettings s = resolveExtrudeSettings(a);
    EXPECT_EQ(s.extrudeDistance, 0.0);
    EXPECT_EQ(s.bevelDistance, kMaxDistance);
    EXPECT_EQ(s.extrudeOffset, -kMaxDistance);
}

TEST(ExtrudeSettings, ModeZeroIsTheDistanceFieldAndAnythingElseNormals) {
    ExtrudeAttributes a;
    a.mode = 0;
    EXPECT_EQ(resolveExtrudeSettings(a).mode, OffsetMode::kDistanceField);
    a.mode = 1;
    EXPECT_EQ(resolveExtrudeSettings(a).mode, OffsetMode::kNormals);
}

} // namespace
} // namespace type
