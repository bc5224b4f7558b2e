#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZQuaternion.h>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr double kQuarter = M_PI / 2.0;

void expectPoint(const ZPoint& actual, const ZPoint& expected) {
    EXPECT_TRUE(actual.isEquivalent(expected, 1e-9))
        << "got (" << actual.x << ", " << actual.y << ", " << actual.z << ")";
}

} // namespace

TEST(ZEulerRotation, QuarterTurnsFollowTheRightHandRule) {
    expectPoint(ZPoint(0, 1, 0) * ZEulerRotation(kQuarter, 0, 0).asMatrix(), ZPoint(0, 0, 1));
    expectPoint(ZPoint(0, 0, 1) * ZEulerRotation(0, kQuarter, 0).asMatrix(), ZPoint(1, 0, 0));
    expectPoint(ZPoint(1, 0, 0) * ZEulerRotation(0, 0, kQuarter).asMatrix(), ZPoint(0, 1, 0));
}

TEST(ZEulerRotation, OrderXYZRotatesAboutXFirst) {
    // X then Z: the y axis goes to +z under X, and z stays under Z.
    const ZMatrix xyz = ZEulerRotation(kQuarter, 0, kQuarter, ZEulerRotation::kXYZ).asMatrix();
    expectPoint(ZPoint(0, 1, 0) * xyz, ZPoint(0, 0, 1));
    // Z then X: the y axis goes to -x under Z, and -x stays under X.
    const ZMatrix zyx = ZEulerRotation(kQuarter, 0, kQuarter, ZEulerRotation::kZYX).asMatrix();
    expectPoint(ZPoint(0, 1, 0) * zyx, ZPoint(-1, 0, 0));
}

TEST(ZEulerRotation, DecomposeRecoversEveryOrder) {
    const ZEulerRotation::RotationOrder orders[] = {ZEulerRotation::kXYZ, ZEulerRotation::kYZX,
                                                    ZEulerRotation::kZXY, ZEulerRotation::kXZY,
                                                    ZEulerRotation::kYXZ, ZEulerRotation::kZYX};
    for (auto order : orders) {
        const ZEulerRotation rotation(0.3, -0.7, 1.1, order);
        const ZEulerRotation recovered = ZEulerRotation::decompose(rotation.asMatrix(), order);
        EXPECT_NEAR(recovered.x, 0.3, 1e-9) << "order " << order;
        EXPECT_NEAR(recovered.y, -0.7, 1e-9) << "order " << order;
        EXPECT_NEAR(recovered.z, 1.1, 1e-9) << "order " << order;
    }
}

TEST(ZEulerRotation, QuaternionAgreesWithMatrix) {
    const ZEulerRotation rotation(0.4, 1.2, -2.0, ZEulerRotation::kYXZ);
    EXPECT_TRUE(rotation.asQuaternion().asMatrix().isEquivalent(rotation.asMatrix(), 1e-9));
    EXPECT_TRUE(rotation.inverse().asMatrix().isEquivalent(rotation.asMatrix().inverse(), 1e-9));
}

TEST(ZQuaternion, FromToTakesOneDirectionOntoTheOther) {
    const ZVector from(0.2, -0.4, 0.9), to(0.0, 1.0, 0.0);
    const ZVector turned = from.normal() * ZQuaternion(from, to).asMatrix();
    EXPECT_TRUE(turned.isEquivalent(to, 1e-9));
    // Opposite directions still give a proper half turn.
    const ZVector back = ZVector(0, 0, 1) * ZQuaternion(ZVector(0, 0, 1), ZVector(0, 0, -1)).asMatrix();
    EXPECT_TRUE(back.isEquivalent(ZVector(0, 0, -1), 1e-9));
}

TEST(ZQuaternion, ProductAppliesLeftOperandFirst) {
    const ZQuaternion aboutX(kQuarter, ZVector::xAxis), aboutZ(kQuarter, ZVector::zAxis);
    EXPECT_TRUE((aboutX * aboutZ).asMatrix().isEquivalent(aboutX.asMatrix() * aboutZ.asMatrix(), 1e-12));
}

TEST(ZMatrix, InverseUndoesAGeneralTransform) {
    ZMatrix m = ZEulerRotation(0.1, 0.2, 0.3).asMatrix();
    for (int c = 0; c < 3; ++c)
        m(0, c) *= 2.0;
    m(3, 0) = 5.0;
    m(3, 2) = -1.0;
    EXPECT_TRUE((m * m.inverse()).isEquivalent(ZMatrix::identity, 1e-12));
    EXPECT_NEAR(m.det4x4(), 2.0, 1e-12);
}
