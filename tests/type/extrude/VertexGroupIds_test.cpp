#include "extrude/VertexGroupIds.h"

#include <gtest/gtest.h>
#include <set>

namespace type {
namespace {

TEST(VertexGroupIds, AnIdInUseIsRaisedPastEveryUsedIdAndEarlierCharacters) {
    const std::set<int> used = {4, 5, 7};
    const VertexGroupIds found =
        resolveVertexGroupIds({4, 4, 6, 9}, 4, [&](int id) { return used.count(id) > 0; });
    EXPECT_EQ(found.ids, (std::vector<int>{6, 8, 9, 10}));
    EXPECT_EQ(found.missing, 0);
}

TEST(VertexGroupIds, CharactersWithoutARequestedIdAskForTheMissingOnesAndStartFromZero) {
    const VertexGroupIds found = resolveVertexGroupIds({3}, 3, [](int) { return false; });
    EXPECT_EQ(found.missing, 2);
    EXPECT_EQ(found.ids, (std::vector<int>{3, 0, 1}));
}

TEST(VertexGroupIds, MoreIdsThanCharactersUseOnlyTheFirst) {
    const VertexGroupIds found = resolveVertexGroupIds({1, 2, 3}, 1, [](int) { return false; });
    EXPECT_EQ(found.ids, (std::vector<int>{1}));
    EXPECT_EQ(found.missing, 0);
}

} // namespace
} // namespace type
