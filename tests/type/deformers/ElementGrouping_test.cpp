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
    const type::RunningSums words(kWords);
    const type::RunningSums lines(kLines);
    expectGroup(words.holding(0), 0, 0, 2);
    expectGroup(words.holding(1), 0, 0, 2);
    expectGroup(words.holding(2), 2, 2, 1);
    expectGroup(words.holding(3), 4, 3, 1);
    expectGroup(lines.holding(2), 0, 0, 3);
    expectGroup(lines.holding(3), 2, 3, 1);
}

TEST(ElementGrouping, SolidsOutsideEveryGroupHaveNone) {
    EXPECT_EQ(type::RunningSums(kLines).holding(4).index, -1);
    EXPECT_EQ(type::RunningSums(kLines).holding(-1).index, -1);
    EXPECT_EQ(type::RunningSums({}).holding(0).index, -1);
    EXPECT_EQ(type::RunningSums(std::vector<double>{2, 0, 1, 0, 1, 0, 0}).holding(4).index, -1);
}

TEST(ElementGrouping, CountsAreTruncatedAndDamagedOnesCountNothing) {
    const type::RunningSums sums(std::vector<double>{1.9, -3.0, std::nan(""), 2.5});
    EXPECT_EQ(sums.before(4), 3);
    expectGroup(sums.holding(1), 3, 1, 2);
    EXPECT_EQ(type::solidCount(std::numeric_limits<double>::infinity()), std::numeric_limits<int>::max());
}

TEST(ElementGrouping, SolidsBeforeStopsAtTheArraysEnd) {
    const type::RunningSums words(kWords);
    EXPECT_EQ(words.before(0), 0);
    EXPECT_EQ(words.before(3), 3);
    EXPECT_EQ(words.before(50), 4);
}

} // namespace
