#include "core/Wildcard.h"

#include <gtest/gtest.h>
#include <string>

using oz::hasWildcards;
using oz::matchesWildcard;

TEST(Wildcard, LiteralPatternMatchesOnlyTheSameName) {
    EXPECT_TRUE(matchesWildcard("pCube1", "pCube1"));
    EXPECT_FALSE(matchesWildcard("pCube1", "pCube10"));
    EXPECT_FALSE(matchesWildcard("pCube1", "pcube1"));
    EXPECT_TRUE(matchesWildcard("", ""));
    EXPECT_FALSE(matchesWildcard("", "a"));
}

TEST(Wildcard, PatternIsAnchoredAtBothEnds) {
    EXPECT_FALSE(matchesWildcard("Cube", "pCube1"));
    EXPECT_TRUE(matchesWildcard("pCube*", "pCube12"));
    EXPECT_FALSE(matchesWildcard("pCube*", "xpCube12"));
    EXPECT_TRUE(matchesWildcard("*Shape", "pCubeShape"));
    EXPECT_FALSE(matchesWildcard("*Shape", "pCubeShape1"));
}

TEST(Wildcard, StarTakesAnyRunIncludingNone) {
    EXPECT_TRUE(matchesWildcard("*", ""));
    EXPECT_TRUE(matchesWildcard("*", "anything"));
    EXPECT_TRUE(matchesWildcard("p*1", "p1"));
    EXPECT_TRUE(matchesWildcard("**a**", "a"));
    // The first place "Shape" stands is not the one that lets the rest match.
    EXPECT_TRUE(matchesWildcard("*Shape1", "pShapeShape1"));
    EXPECT_TRUE(matchesWildcard("a*b*c", "aXbYbZc"));
    EXPECT_FALSE(matchesWildcard("a*b*c", "aXbYbZ"));
}

TEST(Wildcard, QuestionMarkTakesExactlyOneCharacter) {
    EXPECT_TRUE(matchesWildcard("pCube?", "pCube1"));
    EXPECT_FALSE(matchesWildcard("pCube?", "pCube"));
    EXPECT_FALSE(matchesWildcard("pCube?", "pCube12"));
    EXPECT_TRUE(matchesWildcard("?*", "x"));
    EXPECT_FALSE(matchesWildcard("?*", ""));
}

TEST(Wildcard, LongHopelessNameIsRefusedWithoutBlowingUp) {
    const std::string name(20000, 'a');
    EXPECT_FALSE(matchesWildcard("*a*a*a*a*a*b", name));
    EXPECT_TRUE(matchesWildcard("*a*a*a*a*a*", name));
}

TEST(Wildcard, OnlyStarAndQuestionMarkMakeAPattern) {
    EXPECT_TRUE(hasWildcards("pCube*"));
    EXPECT_TRUE(hasWildcards("p?"));
    EXPECT_FALSE(hasWildcards("pCube1"));
    EXPECT_FALSE(hasWildcards("|group1|pCube1.translate[0]"));
}
