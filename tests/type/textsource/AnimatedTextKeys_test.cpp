#include "textsource/AnimatedTextKeys.h"

#include <gtest/gtest.h>
#include <sstream>

namespace type {
namespace {

std::vector<AnimatedTextKey> parse(std::string_view json, std::string& diagnostics) {
    std::ostringstream out;
    auto keys = parseAnimatedTextKeys(json, out);
    diagnostics = out.str();
    return keys;
}

TEST(AnimatedTextKeys, ReadsHexAndFrameWithDefaults) {
    std::string diagnostics;
    const auto keys = parse(R"([{"hex": "41 ", "frame": 12}, 7, "x", {"frame": 2.5},
                                {"hex": "42 "}, {"hex": "43 ", "frame": "9"}, {"hex": 44, "frame": 1}])",
                            diagnostics);
    EXPECT_EQ(diagnostics, "");
    ASSERT_EQ(keys.size(), 5u);
    EXPECT_EQ(keys[0].hex, "41 ");
    EXPECT_EQ(keys[0].frame, 12.0);
    EXPECT_EQ(keys[1].hex, "");
    EXPECT_EQ(keys[1].frame, 2.5);
    EXPECT_EQ(keys[2].frame, 0.0);
    EXPECT_EQ(keys[3].frame, 0.0);
    EXPECT_EQ(keys[4].hex, "");
}

TEST(AnimatedTextKeys, RootThatIsNotAnArrayIsReported) {
    for (const char* json : {R"({"hex": "41 ", "frame": 1})", "[1, 2", "42", "not json"}) {
        std::string diagnostics;
        EXPECT_TRUE(parse(json, diagnostics).empty()) << json;
        EXPECT_EQ(diagnostics, "Type JSON Error\n") << json;
    }
    std::string diagnostics;
    EXPECT_TRUE(parse("", diagnostics).empty());
    EXPECT_TRUE(parse("[]", diagnostics).empty());
    EXPECT_EQ(diagnostics, "");
}

TEST(AnimatedTextKeys, LastKeyStrictlyBeforeTheTimeApplies) {
    const std::vector<AnimatedTextKey> keys{{20.0, "43 "}, {5.0, "41 "}, {10.0, "42 "}};
    EXPECT_EQ(keyedText(keys, 5.0), "");
    EXPECT_EQ(keyedText(keys, 5.5), "41 ");
    EXPECT_EQ(keyedText(keys, 10.0), "41 ");
    EXPECT_EQ(keyedText(keys, 10.01), "42 ");
    EXPECT_EQ(keyedText(keys, 1000.0), "43 ");
    EXPECT_EQ(keyedText({}, 1000.0), "");
}

} // namespace
} // namespace type
