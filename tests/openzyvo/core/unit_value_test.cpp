#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZDistance.h>
#include <gtest/gtest.h>
#include <numbers>

TEST(UnitValues, ConvertBetweenAnyTwoKnownUnits) {
    ZStatus status;
    EXPECT_DOUBLE_EQ(ZAngle(180.0, ZAngle::kDegrees).as(ZAngle::kRadians, &status), std::numbers::pi);
    EXPECT_TRUE(status);
    EXPECT_DOUBLE_EQ(ZAngle(1.0, ZAngle::kDegrees).as(ZAngle::kAngSeconds), 3600.0);
    EXPECT_DOUBLE_EQ(ZDistance(1.0, ZDistance::kFeet).as(ZDistance::kInches, &status), 12.0);
    EXPECT_TRUE(status);
    EXPECT_DOUBLE_EQ(ZDistance(2.5, ZDistance::kMeters).as(ZDistance::kMeters), 2.5);
}

TEST(UnitValues, UnknownUnitsFailAndChangeNothing) {
    ZStatus status;
    EXPECT_EQ(ZAngle(1.0, ZAngle::kDegrees).as(ZAngle::kInvalid, &status), 0.0);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(ZDistance(1.0, ZDistance::kLast).as(ZDistance::kMeters, &status), 0.0);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    ZDistance distance(3.0, ZDistance::kMeters);
    EXPECT_EQ(distance.setUnit(ZDistance::kInvalid), ZStatus::kInvalidParameter);
    EXPECT_EQ(distance.unit(), ZDistance::kMeters);
    ZAngle angle(3.0, ZAngle::kDegrees);
    EXPECT_EQ(angle.setUnit(ZAngle::kLast), ZStatus::kInvalidParameter);
    EXPECT_EQ(angle.unit(), ZAngle::kDegrees);
    EXPECT_TRUE(angle.setUnit(ZAngle::kRadians));
    EXPECT_DOUBLE_EQ(angle.asRadians(), 3.0);
}

TEST(UnitValues, UiUnitTakesOnlyKnownUnits) {
    const ZAngle::Unit angleBefore = ZAngle::uiUnit();
    const ZDistance::Unit distanceBefore = ZDistance::uiUnit();
    EXPECT_EQ(ZAngle::setUIUnit(ZAngle::kInvalid), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZAngle::uiUnit(), angleBefore);
    EXPECT_EQ(ZDistance::setUIUnit(ZDistance::kLast), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZDistance::uiUnit(), distanceBefore);

    ASSERT_TRUE(ZDistance::setUIUnit(ZDistance::kMillimeters));
    EXPECT_EQ(ZDistance::uiUnit(), ZDistance::kMillimeters);
    ASSERT_TRUE(ZDistance::setUIUnit(distanceBefore));
}
