#include "svg/PathTokens.h"
#include "svg/SvgNumbers.h"

#include <gtest/gtest.h>

namespace type {
namespace {

TEST(SvgNumbers, ExponentRaisesToAPowerRatherThanScalingByTen) {
    EXPECT_EQ(readNumbers("1e2 2e3 2E-1"), (std::vector<double>{1.0, 8.0, 0.5}));
    // The exponent's own exponent is read the same way: 2^(2^3).
    EXPECT_EQ(readNumbers("2e2e3"), (std::vector<double>{256.0}));
}

TEST(SvgNumbers, SecondPointOrSignStartsTheNextNumber) {
    EXPECT_EQ(readNumbers("1.5.5-2+3,.25"), (std::vector<double>{1.5, 0.5, -2.0, 3.0, 0.25}));
    EXPECT_EQ(readNumbers("-"), (std::vector<double>{0.0}));
}

TEST(SvgNumbers, AttributeNumbersReadTheLeadingNumberOnly) {
    EXPECT_EQ(readAttributeNumber("38px"), 38.0);
    EXPECT_EQ(readAttributeNumber(" 1e2"), 100.0);
    EXPECT_EQ(readAttributeNumber("auto"), 0.0);
}

TEST(PathTokens, NumbersAfterAMoveAreLineTosOfTheSameCase) {
    const std::vector<PathCommand> absolute = tokenisePath("M0 0 10 0 10 10z");
    EXPECT_EQ(absolute,
              (std::vector<PathCommand>{
                  {'m', false, {0, 0}}, {'l', false, {10, 0}}, {'l', false, {10, 10}}, {'z', true, {}}}));

    const std::vector<PathCommand> relative = tokenisePath("m0 0 10 0 10 10z");
    EXPECT_EQ(relative,
              (std::vector<PathCommand>{
                  {'m', true, {0, 0}}, {'l', true, {10, 0}}, {'l', true, {10, 10}}, {'z', true, {}}}));
}

TEST(PathTokens, OtherCommandsRepeatThemselves) {
    const std::vector<PathCommand> commands = tokenisePath("M1,2C1,2,3,4,5,6,7,8,9,10,11,12h1-2");
    ASSERT_EQ(commands.size(), 5u);
    EXPECT_EQ(commands[1], (PathCommand{'c', false, {1, 2, 3, 4, 5, 6}}));
    EXPECT_EQ(commands[2], (PathCommand{'c', false, {7, 8, 9, 10, 11, 12}}));
    EXPECT_EQ(commands[3], (PathCommand{'h', true, {1}}));
    EXPECT_EQ(commands[4], (PathCommand{'h', true, {-2}}));
}

TEST(PathTokens, ShortLastCommandKeepsWhatItHas) {
    const std::vector<PathCommand> commands = tokenisePath("M0 0 L 5");
    ASSERT_EQ(commands.size(), 2u);
    EXPECT_EQ(commands[1].numbers, std::vector<double>{5});
}

} // namespace
} // namespace type
