#include <OpenZyvo/ZBoundingBox.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZMatrix.h>
#include <gtest/gtest.h>

TEST(ZBoundingBox, StartsEmptyWithCornersAtTheOrigin) {
    ZBoundingBox box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_EQ(box.min(), ZPoint(0, 0, 0));
    EXPECT_DOUBLE_EQ(box.width(), 0.0);
    EXPECT_FALSE(box.contains(ZPoint(0, 0, 0)));
}

TEST(ZBoundingBox, FirstPointDefinesTheBoxEvenFarFromTheOrigin) {
    ZBoundingBox box;
    box.expand(ZPoint(5, 6, 7));
    EXPECT_EQ(box.min(), ZPoint(5, 6, 7));
    EXPECT_EQ(box.max(), ZPoint(5, 6, 7));
    box.expand(ZPoint(-1, 8, 7));
    EXPECT_DOUBLE_EQ(box.width(), 6.0);
    EXPECT_DOUBLE_EQ(box.height(), 2.0);
    EXPECT_TRUE(box.contains(ZPoint(0, 7, 7)));
}

TEST(ZBoundingBox, TransformKeepsEveryCornerInside) {
    ZBoundingBox box(ZPoint(0, 0, 0), ZPoint(2, 1, 0));
    box.transformUsing(ZEulerRotation(0, 0, M_PI / 4).asMatrix());
    EXPECT_NEAR(box.min().x, -1.0 / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(box.max().y, 3.0 / std::sqrt(2.0), 1e-12);
}
