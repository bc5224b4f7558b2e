#include "commands/Parser.h"

#include <gtest/gtest.h>

using namespace oz::cmd;

namespace {

Script parsed(std::string_view source) {
    ParseResult result = parse(source);
    EXPECT_FALSE(result.error) << result.error->text();
    return result.script;
}

std::string errorOf(std::string_view source) {
    ParseResult result = parse(source);
    EXPECT_TRUE(result.script.statements.empty());
    return result.error ? result.error->text() : "no error";
}

const Value& valueAt(const Invocation& call, std::size_t index) {
    return std::get<Value>(call.arguments.at(index).node);
}

std::string flagAt(const Invocation& call, std::size_t index) {
    return std::get<FlagArgument>(call.arguments.at(index).node).name;
}

} // namespace

TEST(Parser, CommandFormKeepsFlagsAndValuesInOrder) {
    const Script script = parsed("setAttr -type \"string\" type1.textInput \"33 44\";\n"
                                 "xform -t 1 -2.5 3e2 -r -90 0 .5 pCube1;");
    ASSERT_EQ(script.statements.size(), 2u);

    const Invocation& first = script.statements[0];
    EXPECT_EQ(first.name, "setAttr");
    ASSERT_EQ(first.arguments.size(), 4u);
    EXPECT_EQ(flagAt(first, 0), "type");
    EXPECT_EQ(valueAt(first, 1), Value(std::string("string")));
    EXPECT_EQ(valueAt(first, 2), Value(std::string("type1.textInput")));

    const Invocation& second = script.statements[1];
    ASSERT_EQ(second.arguments.size(), 9u);
    EXPECT_EQ(flagAt(second, 0), "t");
    EXPECT_EQ(valueAt(second, 1), Value(1));
    EXPECT_EQ(valueAt(second, 2), Value(-2.5));
    EXPECT_EQ(valueAt(second, 3), Value(300.0));
    EXPECT_EQ(flagAt(second, 4), "r");
    EXPECT_EQ(valueAt(second, 5), Value(-90));
    EXPECT_EQ(valueAt(second, 7), Value(0.5));
    EXPECT_EQ(valueAt(second, 8), Value(std::string("pCube1")));
    EXPECT_EQ(second.position.line, 2);
    EXPECT_EQ(second.position.column, 1);
}

TEST(Parser, QuotedStringsUnescapeAndStayValues) {
    const Script script = parsed(R"(print "say \"hi\"\\ \n\t" "-notAFlag" "a;b // c";)");
    const Invocation& call = script.statements.at(0);
    ASSERT_EQ(call.arguments.size(), 3u);
    EXPECT_EQ(valueAt(call, 0), Value(std::string("say \"hi\"\\ \n\t")));
    EXPECT_EQ(valueAt(call, 1), Value(std::string("-notAFlag")));
    EXPECT_EQ(valueAt(call, 2), Value(std::string("a;b // c")));
}

TEST(Parser, BareWordsKeepPlugPathsWhole) {
    const Script script =
        parsed("connectAttr time1.outTime mesh1.instObjGroups[0].objectGroups[2].objectGroupId;");
    const Invocation& call = script.statements.at(0);
    EXPECT_EQ(valueAt(call, 1), Value(std::string("mesh1.instObjGroups[0].objectGroups[2].objectGroupId")));
}

TEST(Parser, CallFormWithNestedCallAndNoTrailingSemicolon) {
    const Script script = parsed("createExtruderGroupIds( \"typeExtrude1\", 3);\n"
                                 "outer(inner(-1), 2.5, \"x\")");
    ASSERT_EQ(script.statements.size(), 2u);
    const Invocation& first = script.statements[0];
    EXPECT_EQ(first.name, "createExtruderGroupIds");
    ASSERT_EQ(first.arguments.size(), 2u);
    EXPECT_EQ(valueAt(first, 0), Value(std::string("typeExtrude1")));
    EXPECT_EQ(valueAt(first, 1), Value(3));

    const Invocation& outer = script.statements[1];
    const Invocation& inner = *std::get<std::shared_ptr<const Invocation>>(outer.arguments.at(0).node);
    EXPECT_EQ(inner.name, "inner");
    EXPECT_EQ(valueAt(inner, 0), Value(-1));
    EXPECT_EQ(valueAt(outer, 1), Value(2.5));
    EXPECT_TRUE(parsed("f()").statements.at(0).arguments.empty());
}

TEST(Parser, CommentsAndEmptyStatementsAreSkipped) {
    const Script script = parsed("// leading comment\n"
                                 "a 1; /* a block\n spanning ; lines */ b 2;;\n"
                                 "c path/to/file // trailing\n");
    ASSERT_EQ(script.statements.size(), 3u);
    EXPECT_EQ(script.statements[1].name, "b");
    EXPECT_EQ(script.statements[1].position.line, 3);
    EXPECT_EQ(valueAt(script.statements[2], 0), Value(std::string("path/to/file")));
}

TEST(Parser, NumbersThatAreNotQuiteNumbersStayWords) {
    const Script script = parsed("f 1abc nan inf -. 99999999999");
    const Invocation& call = script.statements.at(0);
    EXPECT_EQ(valueAt(call, 0), Value(std::string("1abc")));
    EXPECT_EQ(valueAt(call, 1), Value(std::string("nan")));
    EXPECT_EQ(valueAt(call, 2), Value(std::string("inf")));
    EXPECT_EQ(valueAt(call, 3), Value(std::string("-.")));
    EXPECT_EQ(valueAt(call, 4), Value(99999999999.0));
}

TEST(Parser, ErrorsNameLineAndColumn) {
    EXPECT_EQ(errorOf("a;\nb \"open"), "line 2, column 3: unterminated string");
    EXPECT_EQ(errorOf("a \"bad \\q\""), "line 1, column 8: unknown escape sequence '\\q'");
    EXPECT_EQ(errorOf("a;\n  /* never closed"), "line 2, column 3: unterminated comment");
    EXPECT_EQ(errorOf("f(1, 2"), "line 1, column 7: expected ',' or ')', found the end of the script");
    EXPECT_EQ(errorOf("f(1) 2;"), "line 1, column 6: expected ';', found an integer '2'");
    EXPECT_EQ(errorOf("f(name)"), "line 1, column 3: 'name' is not a value; quote it to pass it as a string");
    EXPECT_EQ(errorOf("ok;\n\n   \"str\" x"),
              "line 3, column 4: expected a command name, found a string 'str'");
    EXPECT_EQ(errorOf("a -x ( 1 )"), "line 1, column 6: expected an argument or ';', found '(' '('");
}

TEST(Parser, ColumnsCountCharactersNotBytes) {
    EXPECT_EQ(errorOf("print \"é\" \"ü"), "line 1, column 11: unterminated string");
}

TEST(Parser, DeepNestingIsAnErrorNotACrash) {
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "f(";
    EXPECT_EQ(errorOf(deep), "line 1, column 513: calls are nested too deeply");
}
