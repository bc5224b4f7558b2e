#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <gtest/gtest.h>

TEST(ZStringFormat, FillsPositionalPlaceholdersInAnyOrder) {
    ZString text;
    text.format("The current font (^1s) is missing.", "Arial");
    EXPECT_EQ(text, "The current font (Arial) is missing.");

    text.format("^2s before ^1s, ^1s again", "one", "two");
    EXPECT_EQ(text, "two before one, one again");
}

TEST(ZStringFormat, KeepsUnrelatedCaretsAndEmptiesMissingArguments) {
    ZString text;
    text.format("a^b ^^1s ^3s|", "x");
    EXPECT_EQ(text, "a^b ^1s |");
}

TEST(ZString, CountsUtf8CharactersSeparatelyFromBytes) {
    const ZString text("日本 ok");
    EXPECT_EQ(text.length(), 9u);
    EXPECT_EQ(text.numChars(), 5u);
}

TEST(ZString, SplitDropsEmptyPieces) {
    ZStringArray parts;
    ZString("33  44 20 ").split(' ', parts);
    ASSERT_EQ(parts.length(), 3u);
    EXPECT_EQ(parts[0], "33");
    EXPECT_EQ(parts[2], "20");
}

TEST(ZString, NumbersParseOnlyWhenTheWholeTextIsANumber) {
    EXPECT_TRUE(ZString(" 42 ").isInt());
    EXPECT_FALSE(ZString("4x").isInt());
    EXPECT_TRUE(ZString("-1.5e3").isDouble());
    EXPECT_DOUBLE_EQ(ZString("-1.5e3").asDouble(), -1500.0);
    EXPECT_FALSE(ZString("").isDouble());
}

TEST(ZString, SubstringIsInclusiveAndClamped) {
    const ZString text("fontSize");
    EXPECT_EQ(text.substring(0, 3), "font");
    EXPECT_EQ(text.substring(4, 100), "Size");
    EXPECT_EQ(text.substring(5, 2), "");
}
