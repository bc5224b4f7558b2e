#include "textsource/AnimatedTextTiming.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace type {
namespace {

TEST(AnimatedTextTiming, ShuffleIsASeededPermutation) {
    EXPECT_TRUE(shuffledOrder(0, 1).empty());
    EXPECT_EQ(shuffledOrder(1, 1), std::vector<std::size_t>{0});
    std::vector<std::size_t> identity(12);
    std::iota(identity.begin(), identity.end(), std::size_t{0});
    int unshuffled = 0;
    for (int seed = 0; seed < 20; ++seed) {
        std::vector<std::size_t> order = shuffledOrder(12, seed);
        EXPECT_EQ(order, shuffledOrder(12, seed));
        unshuffled += order == identity;
        std::sort(order.begin(), order.end());
        EXPECT_EQ(order, identity);
    }
    EXPECT_EQ(unshuffled, 0);
    EXPECT_NE(shuffledOrder(12, 1), shuffledOrder(12, 2));
}

TEST(AnimatedTextTiming, CharactersStartDelayFramesApartInTextOrder) {
    const std::vector<std::size_t> shuffled{2, 0, 1};
    EXPECT_EQ(characterTimes(shuffled, 10.0, 2.0, false, false), (std::vector<double>{10.0, 8.0, 6.0}));
    EXPECT_EQ(characterTimes(shuffled, 10.0, 2.0, true, false), (std::vector<double>{6.0, 8.0, 10.0}));
    EXPECT_EQ(characterTimes(shuffled, 10.0, 0.0, true, true), (std::vector<double>{10.0, 10.0, 10.0}));
}

TEST(AnimatedTextTiming, RandomStartsInTheShuffledOrder) {
    // Character 2 starts first, then 0, then 1.
    const std::vector<std::size_t> shuffled{2, 0, 1};
    EXPECT_EQ(characterTimes(shuffled, 10.0, 1.5, false, true), (std::vector<double>{8.5, 7.0, 10.0}));
    EXPECT_EQ(characterTimes(shuffled, 10.0, 1.5, true, true), (std::vector<double>{8.5, 10.0, 7.0}));
}

} // namespace
} // namespace type
