#include <OpenZyvo/ZTime.h>
#include <gtest/gtest.h>

TEST(ZTime, ConvertsBetweenFrameRates) {
    const ZTime film(48.0, ZTime::kFilm);
    EXPECT_DOUBLE_EQ(film.as(ZTime::kSeconds), 2.0);
    EXPECT_DOUBLE_EQ(film.as(ZTime::kNTSCFrame), 60.0);
    EXPECT_DOUBLE_EQ(film.as(ZTime::kMilliseconds), 2000.0);
    EXPECT_TRUE(ZTime(1.0, ZTime::kSeconds) == ZTime(25.0, ZTime::kPALFrame));
}

TEST(ZTime, HostUnitsHaveTheirFrameRates) {
    EXPECT_DOUBLE_EQ(ZTime::unitsPerSecond(ZTime::kGames), 15.0);
    EXPECT_DOUBLE_EQ(ZTime::unitsPerSecond(ZTime::kShowScan), 48.0);
    EXPECT_DOUBLE_EQ(ZTime::unitsPerSecond(ZTime::kPALField), 50.0);
    EXPECT_DOUBLE_EQ(ZTime::unitsPerSecond(ZTime::kNTSCField), 60.0);
}

TEST(ZTime, UiUnitIsTheDefaultUnitAndRejectsInvalid) {
    const ZTime::Unit saved = ZTime::uiUnit();
    ASSERT_TRUE(ZTime::setUIUnit(ZTime::kPALFrame));
    EXPECT_EQ(ZTime(3.0).unit(), ZTime::kPALFrame);
    EXPECT_FALSE(ZTime::setUIUnit(ZTime::kInvalid));
    EXPECT_EQ(ZTime::uiUnit(), ZTime::kPALFrame);
    ZTime::setUIUnit(saved);
}
