#include "deformers/PivotTransform.h"

#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZTransformationMatrix.h>
#include <gtest/gtest.h>

namespace {

// The degree conversion is kept at the precision scenes were keyed with,
// which puts a quarter turn a few 1e-9 off.
void expectNear(const type::Point3& got, const type::Point3& want) {
    EXPECT_NEAR(got.x, want.x, 1e-8);
    EXPECT_NEAR(got.y, want.y, 1e-8);
    EXPECT_NEAR(got.z, want.z, 1e-8);
}

TEST(PivotTransform, ScalesBeforeTurningAboutThePivot) {
    // Scaled by (2, 1, 1) first the offset (1, 0, 0) becomes (2, 0, 0), which a
    // quarter turn about Z takes to (0, 2, 0); turned first it would stay at
    // length 1.
    const type::PivotTransform transform({1, 1, 1}, {0, 0, 90}, {2, 1, 1});
    expectNear(transform.apply({2, 1, 1}), {1, 3, 1});
    expectNear(transform.apply({1, 1, 1}), {1, 1, 1});
}

TEST(PivotTransform, TurnsAboutXThenYThenZ) {
    // X first: (0, 1, 0) goes to (0, 0, 1), then Y takes it to (1, 0, 0).
    const type::PivotTransform transform({}, {90, 90, 0}, {1, 1, 1});
    expectNear(transform.apply({0, 1, 0}), {1, 0, 0});
}

TEST(PivotTransform, AgreesWithTheHostTransformation) {
    const type::Point3 angles{31.0, -47.0, 112.0};
    const type::Point3 scale{1.5, 0.25, -2.0};
    const type::Point3 pivot{0.5, -1.0, 3.0};
    ZTransformationMatrix host;
    host.rotateBy(ZEulerRotation(angles.x * type::kDegreesToRadians, angles.y * type::kDegreesToRadians,
                                 angles.z * type::kDegreesToRadians));
    const double factors[3] = {scale.x, scale.y, scale.z};
    host.addScale(factors);
    const type::PivotTransform transform(pivot, angles, scale);
    for (const type::Point3& p : {type::Point3{1, 2, 3}, type::Point3{-4, 0.5, 7}}) {
        const ZPoint q = ZPoint(p.x - pivot.x, p.y - pivot.y, p.z - pivot.z) * host.asMatrix();
        expectNear(transform.apply(p), {q.x + pivot.x, q.y + pivot.y, q.z + pivot.z});
    }
}

} // namespace
