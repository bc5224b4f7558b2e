#include "CommandTest.h"
#include "commands/Parser.h"

#include <OpenZyvo/ZArgDatabase.h>

namespace {

// The arguments of `command <text>` as the command language passes them.
ZArgList argsOf(const std::string& text) {
    const oz::cmd::ParseResult parsed = oz::cmd::parse("command " + text);
    EXPECT_FALSE(parsed.error);
    ZArgList args;
    for (const oz::cmd::Argument& argument : parsed.script.statements.at(0).arguments) {
        if (const auto* flag = std::get_if<oz::cmd::FlagArgument>(&argument.node)) {
            args.addFlag(ZString(flag->name));
            continue;
        }
        const auto& value = std::get<oz::cmd::Value>(argument.node);
        if (const auto* i = std::get_if<int>(&value))
            args.addArg(*i);
        else if (const auto* d = std::get_if<double>(&value))
            args.addArg(*d);
        else
            args.addArg(ZString(std::get<std::string>(value)));
    }
    return args;
}

ZSyntax shaderSyntax() {
    ZSyntax syntax;
    syntax.addFlag("-gr", "-groupIdNode", ZSyntax::kString);
    syntax.addFlag("-sg", "-shaderGroup", ZSyntax::kString);
    syntax.addFlag("-me", "-meshNode", ZSyntax::kString);
    return syntax;
}

ZSyntax transformSyntax() {
    ZSyntax syntax;
    syntax.addFlag("-t", "-translate", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
    syntax.addFlag("-i", "-index", ZSyntax::kLong);
    syntax.addFlag("-v", "-visible", ZSyntax::kBoolean);
    syntax.addFlag("-s", "-shells");
    syntax.addFlag("-a", "-add", ZSyntax::kString, ZSyntax::kUnsigned);
    syntax.makeFlagMultiUse("-add");
    syntax.setObjectType(ZSyntax::kStringObjects, 0, 2);
    syntax.enableQuery();
    return syntax;
}

} // namespace

using ArgParser = CommandTest;

TEST_F(ArgParser, ReadsFlagsByShortOrLongNameWithOrWithoutDash) {
    ZStatus status;
    const ZArgDatabase args(shaderSyntax(), argsOf("-gr groupId1 -shaderGroup \"blinn1SG\" -me mesh1"),
                            &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(args.numberOfFlagsUsed(), 3u);
    EXPECT_TRUE(args.isFlagSet("-groupIdNode"));
    EXPECT_TRUE(args.isFlagSet("sg"));
    EXPECT_EQ(args.flagArgumentString("-gr", 0), "groupId1");
    EXPECT_EQ(args.flagArgumentString("-sg", 0), "blinn1SG");
    ZString mesh;
    EXPECT_TRUE(args.getFlagArgument("-meshNode", 0, mesh));
    EXPECT_EQ(mesh, "mesh1");
}

TEST_F(ArgParser, ConvertsSeveralValuesPerFlagToTheirTypes) {
    ZStatus status;
    const ZArgDatabase args(transformSyntax(), argsOf("-t 1 -2.5 3 -i 7 -v off -s cube1"), &status);
    ASSERT_TRUE(status);
    EXPECT_DOUBLE_EQ(args.flagArgumentDouble("-t", 0), 1.0);
    EXPECT_DOUBLE_EQ(args.flagArgumentDouble("-translate", 1), -2.5);
    EXPECT_DOUBLE_EQ(args.flagArgumentDouble("-t", 2), 3.0);
    EXPECT_EQ(args.flagArgumentInt("-index", 0), 7);
    EXPECT_FALSE(args.flagArgumentBool("-v", 0, &status));
    EXPECT_TRUE(status);
    EXPECT_TRUE(args.isFlagSet("-shells"));

    ZStringArray objects;
    ASSERT_TRUE(args.getObjects(objects));
    EXPECT_EQ(objects, ZStringArray({"cube1"}));

    // Reading past a flag's arguments, or an unset flag, fails without a value.
    args.flagArgumentDouble("-t", 3, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    args.flagArgumentString("-gr", 0, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
}

TEST_F(ArgParser, MultiUseFlagsKeepEveryUse) {
    ZStatus status;
    const ZArgDatabase args(transformSyntax(), argsOf("-add cap 1 -add bevel 2 -add sides 3"), &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(args.numberOfFlagUses("-a"), 3u);
    EXPECT_EQ(args.numberOfFlagsUsed(), 1u);
    ZArgList second;
    ASSERT_TRUE(args.getFlagArgumentList("-add", 1, second));
    EXPECT_EQ(second.asString(0), "bevel");
    EXPECT_EQ(second.asInt(1), 2);
    EXPECT_FALSE(args.getFlagArgumentList("-add", 3, second));
}

TEST_F(ArgParser, QueryModeTakesFlagsWithoutTheirArguments) {
    ZStatus status;
    const ZArgDatabase args(transformSyntax(), argsOf("-t -q cube1"), &status);
    ASSERT_TRUE(status);
    EXPECT_TRUE(args.isQuery());
    EXPECT_TRUE(args.isFlagSet("-t"));
    ZStringArray objects;
    args.getObjects(objects);
    EXPECT_EQ(objects, ZStringArray({"cube1"}));
}

TEST_F(ArgParser, TypedCommandArgumentsComeBeforeObjects) {
    ZSyntax syntax;
    syntax.addArg(ZSyntax::kString);
    syntax.addArg(ZSyntax::kLong);
    syntax.setObjectType(ZSyntax::kStringObjects);
    ZStatus status;
    const ZArgDatabase args(syntax, argsOf("\"typeExtrude1\" 3 a b"), &status);
    ASSERT_TRUE(status);
    ZString name;
    int count = 0;
    EXPECT_TRUE(args.getCommandArgument(0, name));
    EXPECT_TRUE(args.getCommandArgument(1, count));
    EXPECT_EQ(name, "typeExtrude1");
    EXPECT_EQ(count, 3);
    ZStringArray objects;
    args.getObjects(objects);
    EXPECT_EQ(objects, ZStringArray({"a", "b"}));
}

TEST_F(ArgParser, BadArgumentsAreReportedAndLeaveNothingParsed) {
    struct Case {
        const char* args;
        const char* error;
    };
    const Case cases[] = {
        {"-x 1", "invalid flag '-x'"},
        {"-t 1 2", "flag '-t' needs 3 arguments, found 2"},
        {"-t 1 abc 3", "flag '-t' expects a number as argument 2, found 'abc'"},
        {"-i 2.5", "flag '-i' expects an integer, found '2.5'"},
        {"-v maybe", "flag '-v' expects a boolean, found 'maybe'"},
        {"-a cap -1", "flag '-a' expects a non-negative integer as argument 2, found '-1'"},
        {"-i 1 -i 2", "flag '-i' may be used only once"},
        {"a b c", "takes at most 2 objects, found 3"},
        {"-q -e", "invalid flag '-e'"},
    };
    for (const Case& c : cases) {
        log().clear();
        ZStatus status;
        const ZArgDatabase args(transformSyntax(), argsOf(c.args), &status);
        EXPECT_EQ(status, ZStatus::kInvalidParameter) << c.args;
        EXPECT_FALSE(args.isFlagSet("-t")) << c.args;
        EXPECT_EQ(errors(), std::vector<std::string>{c.error}) << c.args;
    }
}

TEST_F(ArgParser, SyntaxRejectsMalformedAndDuplicateFlags) {
    ZSyntax syntax;
    EXPECT_TRUE(syntax.addFlag("-n", "-name", ZSyntax::kString));
    EXPECT_EQ(syntax.addFlag("n", "-other"), ZStatus::kInvalidParameter);
    EXPECT_EQ(syntax.addFlag("-o", "-name"), ZStatus::kInvalidParameter);
    EXPECT_EQ(syntax.makeFlagMultiUse("-missing"), ZStatus::kInvalidParameter);
    syntax.enableQuery();
    EXPECT_EQ(syntax.addFlag("-q", "-quick"), ZStatus::kInvalidParameter);
}

TEST_F(ArgParser, StringValuesThatLookLikeFlagsStayValues) {
    ZArgList args;
    args.addFlag("-gr");
    args.addArg("-notAFlag");
    ZStatus status;
    const ZArgDatabase database(shaderSyntax(), args, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(database.flagArgumentString("-gr", 0), "-notAFlag");
    EXPECT_EQ(args.flagIndex("-gr", "-groupIdNode"), 0u);
    EXPECT_EQ(args.flagIndex("-sg"), ZArgList::kInvalidArgIndex);
}
