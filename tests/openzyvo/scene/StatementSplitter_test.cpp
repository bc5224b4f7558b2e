#include "scene/StatementSplitter.h"

#include <gtest/gtest.h>

namespace {

using oz::scene::splitStatements;
using oz::scene::StatementText;

TEST(StatementSplitter, SemicolonsInStringsAndCommentsDoNotEndStatements) {
    const auto statements = splitStatements("// a; comment\n"
                                            "setAttr \"a.b\" -type \"string\" \"x;y \\\"q;\\\"\";\n"
                                            "/* ; */ print \"z\" /* ; */;  print 1;");
    ASSERT_EQ(statements.size(), 3u);
    EXPECT_EQ(statements[0].text, "setAttr \"a.b\" -type \"string\" \"x;y \\\"q;\\\"\";");
    EXPECT_EQ(statements[0].line, 2);
    EXPECT_EQ(statements[1].text, "print \"z\" /* ; */;");
    EXPECT_EQ(statements[1].line, 3);
    EXPECT_EQ(statements[1].column, 9);
    EXPECT_EQ(statements[2].column, 29);
    for (const StatementText& statement : statements)
        EXPECT_EQ(statement.end, StatementText::End::Semicolon);
}

TEST(StatementSplitter, AStringOpenAtTheEndOfItsLineEndsItsStatementThere) {
    const auto statements = splitStatements("print \"open;\nprint \"next\";\n");
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[0].text, "print \"open;");
    EXPECT_EQ(statements[0].end, StatementText::End::BrokenString);
    EXPECT_EQ(statements[1].text, "print \"next\";");
    EXPECT_EQ(statements[1].line, 2);
}

TEST(StatementSplitter, ACutOffEndIsMarked) {
    auto statements = splitStatements("print 1;\nsetAttr \"a.b\" 1 2");
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[1].end, StatementText::End::EndOfFile);
    statements = splitStatements("print \"cut");
    ASSERT_EQ(statements.size(), 1u);
    EXPECT_EQ(statements[0].end, StatementText::End::EndOfFile);
    EXPECT_TRUE(splitStatements("  // only a comment\n").empty());
}

TEST(StatementSplitter, ACommentNeverClosedIsMarkedWhereItStarts) {
    auto statements = splitStatements("print 1;\n  /* open\nprint 2;\n");
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[1].end, StatementText::End::OpenComment);
    EXPECT_EQ(statements[1].line, 2);
    EXPECT_EQ(statements[1].column, 3);

    statements = splitStatements("print 1 /* open;\nprint 2;\n");
    ASSERT_EQ(statements.size(), 1u);
    EXPECT_EQ(statements[0].end, StatementText::End::OpenComment);
    EXPECT_EQ(statements[0].column, 9);
}

TEST(StatementSplitter, CarriageReturnsEndLinesAndLineComments) {
    for (const char* end : {"\r", "\r\n"}) {
        const std::string source = std::string("// header") + end + "print 1;" + end + "// note" + end +
                                   "print \"open" + end + "print 2;";
        const auto statements = splitStatements(source);
        ASSERT_EQ(statements.size(), 3u) << ::testing::PrintToString(end);
        EXPECT_EQ(statements[0].text, "print 1;");
        EXPECT_EQ(statements[0].line, 2);
        EXPECT_EQ(statements[1].end, StatementText::End::BrokenString);
        EXPECT_EQ(statements[1].line, 4);
        EXPECT_EQ(statements[2].text, "print 2;");
        EXPECT_EQ(statements[2].line, 5);
        EXPECT_EQ(statements[2].column, 1);
    }
}

} // namespace
