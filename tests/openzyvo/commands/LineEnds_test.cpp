#include "commands/Lexer.h"
#include "commands/Parser.h"

#include <gtest/gtest.h>

namespace {

using oz::cmd::tokenize;

TEST(LineEnds, CarriageReturnsEndLinesAndLineComments) {
    for (const std::string end : {"\r", "\r\n", "\n"}) {
        const auto lexed = tokenize("a // note" + end + "b \"x\"" + end + end + "c");
        ASSERT_FALSE(lexed.error) << lexed.error->text();
        ASSERT_EQ(lexed.tokens.size(), 5u) << ::testing::PrintToString(end);
        EXPECT_EQ(lexed.tokens[1].text, "b");
        EXPECT_EQ(lexed.tokens[1].position.line, 2);
        EXPECT_EQ(lexed.tokens[2].position.column, 3);
        EXPECT_EQ(lexed.tokens[3].text, "c");
        EXPECT_EQ(lexed.tokens[3].position.line, 4);
        EXPECT_EQ(lexed.tokens[3].position.column, 1);
    }
}

TEST(LineEnds, AStringOpenAtACarriageReturnIsUnterminated) {
    const auto parsed = oz::cmd::parse("a;\rb \"open\rc;");
    ASSERT_TRUE(parsed.error);
    EXPECT_EQ(parsed.error->text(), "line 2, column 3: unterminated string");
}

} // namespace
