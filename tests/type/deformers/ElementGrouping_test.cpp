#include "deformers/ElementGrouping.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

void expectGroup(const type::SolidGroup& group, int index, int first, int count) {
    EXPECT_EQ(group.index, index);
    EXPECT_EQ(group.first, first);
    EXPECT_EQ(group.count, count);
}

// "ab  c" then an empty line then "d": the double space leaves an empty word,
// the empty line an empty word and an empty line.
const std::vector<double> kWords = {2, 0, 1, 0, 1};
const std::vector<double> kLines = {3, 0, 1};

TEST(ElementGrouping, EmptyWordsAndLinesHoldNoSolid) {
    expectGroup(type::groupHolding(kWords, 0), 0, 0, 2);
    expectGroup(type::groupHolding(kWords, 1), 0, 0, 2);
    expectGroup(type::groupHolding(kWords, 2), 2, 2, 1);
    expectGroup(type::groupHolding(kWords, 3), 4, 3, 1);
    expectGroup(type::groupHolding(kLines, 2), 0, 0, 3);
    expectGroup(type::groupHolding(kLines, 3), 2, 3, 1);
}

TEST(ElementGrouping, SolidsPastTheLastGroupHaveNone) {
    EXPECT_EQ(type::groupHolding(kLines, 4).index, -1);
    EXPECT_EQ(type::groupHolding({}, 0).index, -1);
}

TEST(ElementGrouping, CountsAreTruncatedAndDamagedOnesCountNothing) {
    const std::vector<double> counts = {1.9, -3.0, std::nan(""), 2.5};
    EXPECT_EQ(type::solidsBefore(counts, 4), 3);
    expectGroup(type::groupHolding(counts, 1), 3, 1, 2);
    EXPECT_EQ(type::solidCount(std::numeric_limits<double>::infinity()), std::numeric_limits<int>::max());
}

TEST(ElementGrouping, SolidsBeforeStopsAtTheArraysEnd) {
    EXPECT_EQ(type::solidsBefore(kWords, 0), 0);
    EXPECT_EQ(type::solidsBefore(kWords, 3), 3);
    EXPECT_EQ(type::solidsBefore(kWords, 50), 4);
}

TEST(ElementGrouping, RunningSumsAnswerAsTheWalks) {
    const std::vector<double> counts = {2, 0, 1, 0, 1, 0, 0};
    const type::RunningSums sums(counts);
    for (int solid = -1; solid < 7; ++solid) {
        const type::SolidGroup walked = type::groupHolding(counts, solid);
        const type::SolidGroup looked = sums.holding(solid);
        EXPECT_EQ(looked.index, walked.index) << solid;
        if (walked.index >= 0) {
            EXPECT_EQ(looked.first, walked.first) << solid;
            EXPECT_EQ(looked.count, walked.count) << solid;
        }
    }
    for (int group = 0; group < 9; ++group)
        EXPECT_EQ(sums.before(group), type::solidsBefore(counts, group)) << group;
    EXPECT_EQ(type::RunningSums({}).holding(0).index, -1);
}

} // namespace
