#include "../geometry/Fixtures.h"
#include "offset/DistanceFieldCache.h"

#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::rectangle;

FaceOutline square(double side) {
    FaceOutline face;
    const Contour loop = rectangle(0.0, 0.0, side, side);
    face.points.assign(loop.begin(), loop.end());
    face.loopSizes.push_back(static_cast<int>(loop.size()));
    return face;
}

class DistanceFieldCacheTest : public ::testing::Test {
protected:
    std::vector<DistanceFieldCache::Field> fieldsOf(const std::vector<const FaceOutline*>& outlines,
                                                    int gridSize = 50) {
        std::vector<std::vector<Mitre>> directions;
        for (const FaceOutline* outline : outlines)
            directions.push_back(mitres(*outline));
        return cache.fields(outlines, directions, gridSize);
    }

    DistanceFieldCache cache;
    FaceOutline one = square(1.0);
    FaceOutline two = square(2.0);
};

// An outline alike to one of the last call gets that call's field, whether or not it is the same
// object; a grid of another size, or an outline off by the last bit of one point, gets a new one.
TEST_F(DistanceFieldCacheTest, ReusesAFieldOnlyForTheSameOutlineOnTheSameGrid) {
    const auto first = fieldsOf({&one, &two});
    const FaceOutline copy = one;
    const auto again = fieldsOf({&two, &copy});
    EXPECT_EQ(again[0], first[1]);
    EXPECT_EQ(again[1], first[0]);

    FaceOutline nudged = one;
    nudged.points[2].x = std::nextafter(nudged.points[2].x, 2.0);
    EXPECT_NE(fieldsOf({&nudged, &two})[0], first[0]);
    EXPECT_NE(fieldsOf({&two}, 60)[0], first[1]);
}

// Only the fields of the last call are kept, so the cache holds no more than one text's letters.
TEST_F(DistanceFieldCacheTest, ForgetsOutlinesTheLastCallDidNotAskFor) {
    const auto first = fieldsOf({&one, &two});
    fieldsOf({&two});
    EXPECT_NE(fieldsOf({&one})[0], first[0]);
}

// A kept field offsets as a field built afresh does.
TEST_F(DistanceFieldCacheTest, AKeptFieldOffsetsAsANewOne) {
    fieldsOf({&one});
    const auto kept = fieldsOf({&one});
    std::vector<Point2> fromKept;
    std::vector<Point2> fromNew;
    kept[0]->offset(0.1, fromKept);
    DistanceFieldOffset(one, mitres(one), 50).offset(0.1, fromNew);
    ASSERT_EQ(fromKept.size(), fromNew.size());
    for (std::size_t i = 0; i < fromNew.size(); ++i) {
        EXPECT_EQ(fromKept[i].x, fromNew[i].x);
        EXPECT_EQ(fromKept[i].y, fromNew[i].y);
    }
}

} // namespace
} // namespace type
