#include "deformers/ElementDelays.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>

namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::Pointwise;

type::DelaySettings at(double time, float offsetFrames) {
    type::DelaySettings settings;
    settings.time = time;
    settings.offsetFrames = offsetFrames;
    return settings;
}

TEST(ElementDelays, LaterGroupsStartLaterUpToTheOffset) {
    EXPECT_THAT(type::groupTimes(5, at(100.0, 40.0f)),
                Pointwise(DoubleEq(), {100.0, 90.0, 80.0, 70.0, 60.0}));
}

TEST(ElementDelays, ReversedOrderStartsFromTheLastGroup) {
    type::DelaySettings settings = at(100.0, 40.0f);
    settings.reverseOrder = true;
    EXPECT_THAT(type::groupTimes(5, settings), Pointwise(DoubleEq(), {60.0, 70.0, 80.0, 90.0, 100.0}));
}

TEST(ElementDelays, ALoneGroupStartsAtOnceOrAfterTheWholeOffsetReversed) {
    type::DelaySettings settings = at(10.0, 30.0f);
    EXPECT_THAT(type::groupTimes(1, settings), ElementsAre(DoubleEq(10.0)));
    settings.reverseOrder = true;
    EXPECT_THAT(type::groupTimes(1, settings), ElementsAre(DoubleEq(-20.0)));
    EXPECT_TRUE(type::groupTimes(0, settings).empty());
}

TEST(ElementDelays, NegativeOffsetRunsLaterGroupsAhead) {
    EXPECT_THAT(type::groupTimes(3, at(0.0, -10.0f)), Pointwise(DoubleEq(), {0.0, 5.0, 10.0}));
}

TEST(ElementDelays, TheStepIsDividedInSinglePrecision) {
    // 50 / 6 in float is 8.33333302..., not the double 8.3333333...
    const std::vector<double> times = type::groupTimes(7, at(0.0, 50.0f));
    EXPECT_EQ(times[1], -static_cast<double>(50.0f / 6.0f));
}

TEST(ElementDelays, RandomOrderIsAPermutationFixedBySeed) {
    const std::vector<int> order = type::delayOrder(26, 7);
    std::vector<int> sorted = order;
    std::sort(sorted.begin(), sorted.end());
    std::vector<int> identity(26);
    std::iota(identity.begin(), identity.end(), 0);
    EXPECT_EQ(sorted, identity);
    EXPECT_NE(order, identity);
    EXPECT_EQ(type::delayOrder(26, 7), order);
    EXPECT_NE(type::delayOrder(26, 8), order);
}

TEST(ElementDelays, RandomDelaysFollowTheOrder) {
    type::DelaySettings settings = at(0.0, 25.0f);
    settings.randomDelay = true;
    settings.seed = 3;
    const std::vector<int> order = type::delayOrder(6, 3);
    const std::vector<double> times = type::groupTimes(6, settings);
    for (std::size_t k = 0; k < times.size(); ++k)
        EXPECT_DOUBLE_EQ(times[k], -5.0 * order[k]) << k;
}

TEST(ElementDelays, SeedChangesNothingWithoutRandomDelay) {
    type::DelaySettings settings = at(12.0, 25.0f);
    const std::vector<double> first = type::groupTimes(6, settings);
    settings.seed = 99;
    EXPECT_EQ(type::groupTimes(6, settings), first);
}

} // namespace
