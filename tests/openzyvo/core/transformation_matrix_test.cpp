#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZTransformationMatrix.h>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// The pivot transform the deformers apply: ((p - pivot) * M) + pivot.
ZPoint aboutPivot(const ZPoint& p, const ZPoint& pivot, const ZEulerRotation& rotation,
                  const double scale[3]) {
    ZTransformationMatrix transform;
    transform.rotateBy(rotation);
    transform.addScale(scale);
    return ZPoint(p - pivot) * transform.asMatrix() + ZVector(pivot);
}

} // namespace

TEST(ZTransformationMatrix, ScalesBeforeRotatingThenTranslates) {
    ZTransformationMatrix transform;
    const double scale[3] = {2.0, 1.0, 1.0};
    transform.addScale(scale);
    transform.rotateBy(ZEulerRotation(0, 0, M_PI / 2));
    transform.setTranslation(ZVector(10, 0, 0));
    // (1,0,0) -> scale (2,0,0) -> rotate (0,2,0) -> translate (10,2,0)
    EXPECT_TRUE((ZPoint(1, 0, 0) * transform.asMatrix()).isEquivalent(ZPoint(10, 2, 0), 1e-12));
}

TEST(ZTransformationMatrix, AddScaleMultipliesAndRotateByComposes) {
    ZTransformationMatrix transform;
    const double twice[3] = {2, 2, 2}, thrice[3] = {3, 1, 1};
    transform.addScale(twice);
    transform.addScale(thrice);
    double scale[3];
    transform.getScale(scale);
    EXPECT_DOUBLE_EQ(scale[0], 6.0);
    EXPECT_DOUBLE_EQ(scale[1], 2.0);

    ZTransformationMatrix turns;
    turns.rotateBy(ZEulerRotation(0, 0, M_PI / 4));
    turns.rotateBy(ZEulerRotation(0, 0, M_PI / 4));
    EXPECT_TRUE((ZPoint(1, 0, 0) * turns.asMatrix()).isEquivalent(ZPoint(0, 1, 0), 1e-12));
}

TEST(ZTransformationMatrix, PivotTransformKeepsThePivotFixed) {
    const ZPoint pivot(3, 4, 0);
    const double scale[3] = {0.5, 2.0, 1.0};
    const ZEulerRotation rotation(0.0, 0.0, 1.0);
    EXPECT_TRUE(aboutPivot(pivot, pivot, rotation, scale).isEquivalent(pivot, 1e-12));
    // Degrees to radians as the deformers convert them.
    const ZEulerRotation ninety(0, 0, 90.0 * 0.0174532925);
    const double unit[3] = {1, 1, 1};
    EXPECT_TRUE(aboutPivot(ZPoint(4, 4, 0), pivot, ninety, unit).isEquivalent(ZPoint(3, 5, 0), 1e-6));
}

TEST(ZTransformationMatrix, DecomposesWhatItComposes) {
    ZTransformationMatrix original;
    const double scale[3] = {1.5, 0.5, 2.0};
    original.setScale(scale);
    original.rotateTo(ZEulerRotation(0.2, -0.3, 0.9));
    original.setTranslation(ZVector(1, 2, 3));
    const ZTransformationMatrix recovered(original.asMatrix());
    EXPECT_TRUE(recovered.asMatrix().isEquivalent(original.asMatrix(), 1e-9));
    double out[3];
    recovered.getScale(out);
    EXPECT_NEAR(out[2], 2.0, 1e-9);
    EXPECT_TRUE(recovered.getTranslation().isEquivalent(ZVector(1, 2, 3), 1e-12));
}
