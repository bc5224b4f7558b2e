#include "FrameRange.h"

#include <gtest/gtest.h>

namespace {

using zyvo::FramePattern;
using zyvo::parseFrameRange;

std::vector<long> framesOf(const std::string& text) {
    std::vector<long> frames;
    if (const auto range = parseFrameRange(text))
        for (std::size_t i = 0; i < range->count(); ++i)
            frames.push_back((*range)[i]);
    return frames;
}

TEST(FrameRange, RangesAreWholeAscendingAndStepped) {
    EXPECT_EQ(framesOf("1:3"), (std::vector<long>{1, 2, 3}));
    EXPECT_EQ(framesOf("-2:3:2"), (std::vector<long>{-2, 0, 2}));
    EXPECT_EQ(framesOf("7:7"), (std::vector<long>{7}));
    EXPECT_EQ(parseFrameRange("-1000000000:1000000000")->count(), 2000000001u) << "counted, not listed";
    for (const char* bad : {"3:1", "1:2:0", "1:2:-1", "1", "1:", ":2", "1.5:3", "a:b", "1:2:3:4", "",
                            "0:1000000001", "-9223372036854775808:0", "0:99999999999999999999"})
        EXPECT_FALSE(parseFrameRange(bad)) << bad;
}

TEST(FrameRange, PatternsFillTheLastFrameNumber) {
    EXPECT_EQ(FramePattern("out.####.glb").forFrame(7), "out.0007.glb");
    EXPECT_EQ(FramePattern("out.%04d.glb").forFrame(12), "out.0012.glb");
    EXPECT_EQ(FramePattern("out.%d.glb").forFrame(12), "out.12.glb");
    EXPECT_EQ(FramePattern("out.##.obj").forFrame(123), "out.123.obj") << "too narrow: all digits stay";
    EXPECT_EQ(FramePattern("out.###.obj").forFrame(-4), "out.-004.obj");
    EXPECT_EQ(FramePattern("take#2/out.##.obj").forFrame(5), "take#2/out.05.obj");
    EXPECT_FALSE(FramePattern("out.glb").hasPattern());
    EXPECT_EQ(FramePattern("out.glb").forFrame(3), "out.glb");
}

TEST(FrameRange, PatternsWiderThanAnyFrameAreTooWide) {
    EXPECT_FALSE(FramePattern("f.%010d.obj").tooWide());
    EXPECT_EQ(FramePattern("f.%010d.obj").forFrame(-3), "f.-0000000003.obj");
    EXPECT_FALSE(FramePattern("f.##########.obj").tooWide());
    for (const char* wide :
         {"f.%999999999d.obj", "f.%011d.obj", "f.%99999999999999999999999d.obj", "f.###########.obj"})
        EXPECT_TRUE(FramePattern(wide).tooWide()) << wide;
}

// Names and ranges come from the command line, which holds up to 128 KiB a word.
TEST(FrameRange, LongNamesAndRangesAreReadWithoutOverflowingTheStack) {
    const std::string hashes(100000, '#');
    EXPECT_TRUE(FramePattern("out." + hashes + ".obj").tooWide());
    const FramePattern percent(std::string(100000, '%') + "d.obj");
    EXPECT_EQ(percent.forFrame(5), std::string(99999, '%') + "5.obj");
    EXPECT_EQ(FramePattern("take" + std::string(100000, 'x') + "##.obj").forFrame(5),
              "take" + std::string(100000, 'x') + "05.obj");
    EXPECT_FALSE(parseFrameRange(std::string(100000, '1') + ":2"));
    EXPECT_FALSE(parseFrameRange(std::string(100000, ':')));
}

} // namespace
