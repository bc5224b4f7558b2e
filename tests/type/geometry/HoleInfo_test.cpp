#include "Fixtures.h"
#include "geometry/HoleInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::circle;
using ::testing::ElementsAre;
using testing::rectangle;

TEST(HoleInfo, HolesOfAShapeFollowItsOuterPointsInOrder) {
    const Shape b{circle({0, 0}, 5, 10), {rectangle(0, 0, 1, 1), circle({0, 2}, 1, 5)}};
    std::vector<std::int32_t> holeInfo{9, 9, 9};

    appendHoleInfo(holeInfo, b, 3, 7);

    EXPECT_THAT(holeInfo, ElementsAre(9, 9, 9, 3, 4, 17, 3, 5, 21));
}

} // namespace
} // namespace type
