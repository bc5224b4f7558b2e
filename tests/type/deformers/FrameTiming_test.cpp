#include "deformers/FrameTiming.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

namespace {

TEST(FrameTiming, PrintsProcessorMillisecondsUnderARule) {
    std::ostringstream out;
    type::reportTiming(out, CLOCKS_PER_SEC / 100, CLOCKS_PER_SEC / 4);
    EXPECT_EQ(out.str(), "--------------------------\nSetup:\t\t10 ms\nThread:\t\t250 ms\n");
}

TEST(FrameTiming, OnlyTheValueOneSwitchesItOn) {
    ::unsetenv("TYPE_DEFORMER_TIMING");
    EXPECT_FALSE(type::timingRequested());
    for (const char* off : {"", "0", "yes", "10"}) {
        ::setenv("TYPE_DEFORMER_TIMING", off, 1);
        EXPECT_FALSE(type::timingRequested()) << off;
    }
    ::setenv("TYPE_DEFORMER_TIMING", "1", 1);
    EXPECT_TRUE(type::timingRequested());
    ::unsetenv("TYPE_DEFORMER_TIMING");
}

} // namespace
