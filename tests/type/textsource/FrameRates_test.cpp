#include "../GoldenTable.h"
#include "textsource/FrameRates.h"

#include <set>
#include <string>

namespace typetest {
namespace {

// Every time unit the host knows has one row in the golden table, and the
// scene-time text counts as many frames per second as that row says.
TEST(FrameRates, EveryUnitCountsTheGoldenFramesPerSecond) {
    std::set<int> listed;
    for (const GoldenRow& row : readGoldenTable("frame_rates.tsv", 3)) {
        const int unit = std::stoi(row[0]);
        ASSERT_GT(unit, ZTime::kInvalid) << row[2];
        ASSERT_LT(unit, ZTime::kLast) << row[2];
        EXPECT_TRUE(listed.insert(unit).second) << row[2] << " is listed twice";
        EXPECT_EQ(type::framesPerSecond(static_cast<ZTime::Unit>(unit)), std::stod(row[1])) << row[2];
    }
    for (int unit = ZTime::kInvalid + 1; unit < ZTime::kLast; ++unit)
        EXPECT_EQ(listed.count(unit), 1u) << "unit " << unit << " is missing from the golden table";
}

TEST(FrameRates, UnitsOutsideTheTableCountOneFramePerSecond) {
    EXPECT_EQ(type::framesPerSecond(ZTime::kInvalid), 1.0);
    EXPECT_EQ(type::framesPerSecond(ZTime::kLast), 1.0);
}

} // namespace
} // namespace typetest
