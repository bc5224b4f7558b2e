#include "CommandTest.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPxCommand.h>
#include <stdexcept>

namespace {

std::vector<std::string> g_calls;

// polyCount -s mesh: records its call and answers with a result whose type
// the flags choose.
class PolyCountCommand : public ZPxCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-s", "-shells");
        syntax.addFlag("-n", "-names");
        syntax.addFlag("-d", "-distances");
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase database(syntax(), args, &status);
        if (!status)
            return status;
        ZStringArray objects;
        database.getObjects(objects);
        g_calls.push_back(commandName().asStdString() + " " + objects[0].asStdString());
        if (database.isFlagSet("-s")) {
            setResult(4);
        } else if (database.isFlagSet("-names")) {
            appendToResult("cap");
            appendToResult("bevel");
        } else if (database.isFlagSet("-d")) {
            setResult(ZDoubleArray({0.5, 1.5}));
        } else {
            setResult(objects[0] + "Shape");
        }
        return ZStatus::kSuccess;
    }
};

// Fails in the ways plug-in code can: with its own error, silently, or by throwing.
class FailingCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        const ZString how = args.asString(0);
        g_calls.push_back("fail " + how.asStdString());
        if (how == "loudly") {
            displayError("fail: something specific went wrong");
            return ZStatus::kFailure;
        }
        if (how == "throwing")
            throw std::runtime_error("out of range");
        return ZStatus::kInvalidParameter;
    }
};

class RawArgsCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        std::string seen;
        for (unsigned int i = 0; i < args.length(); ++i)
            seen += (args.isFlag(i) ? "flag:" : "value:") + args.asString(i).asStdString() + " ";
        g_calls.push_back(seen);
        return ZStatus::kSuccess;
    }
};

class Dispatch : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        g_calls.clear();
        addCommand<PolyCountCommand>("polyCount", PolyCountCommand::newSyntax);
        addCommand<FailingCommand>("fail");
        addCommand<RawArgsCommand>("raw");
    }
};

} // namespace

TEST_F(Dispatch, ResultsComeBackInTheirTypes) {
    int shells = 0;
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount -s mesh1;", shells));
    EXPECT_EQ(shells, 4);

    ZStringArray names;
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount -names mesh1", names));
    EXPECT_EQ(names, ZStringArray({"cap", "bevel"}));

    ZDoubleArray distances;
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount -d mesh1", distances));
    EXPECT_EQ(distances, ZDoubleArray({0.5, 1.5}));

    ZCommandResult result;
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount mesh1", result));
    EXPECT_EQ(result.resultType(), ZCommandResult::kString);
    EXPECT_EQ(result.stringResult(), "mesh1Shape");

    // A result of another type is reported, not converted into nonsense.
    EXPECT_EQ(ZGlobal::executeCommand("polyCount mesh1", shells), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZGlobal::executeCommandStringResult("polyCount -s mesh1"), "4");
}

TEST_F(Dispatch, TheLastStatementGivesTheResult) {
    int shells = 0;
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount a; polyCount b; polyCount -s c", shells));
    EXPECT_EQ(shells, 4);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"polyCount a", "polyCount b", "polyCount c"}));
}

TEST_F(Dispatch, CallsAreCheckedAgainstTheSyntaxBeforeTheyRun) {
    EXPECT_EQ(ZGlobal::executeCommand("polyCount -x mesh1"), ZStatus::kInvalidParameter);
    EXPECT_EQ(ZGlobal::executeCommand("\n  polyCount"), ZStatus::kInvalidParameter);
    EXPECT_TRUE(g_calls.empty());
    EXPECT_EQ(errors(), (std::vector<std::string>{
                            "line 1, column 1: polyCount: invalid flag '-x'",
                            "line 2, column 3: polyCount: needs at least 1 object, found 0",
                        }));
}

TEST_F(Dispatch, CommandsWithoutSyntaxSeeFlagsAndValuesAsWritten) {
    ASSERT_TRUE(ZGlobal::executeCommand("raw -name \"-x\" 3 -2.5 word"));
    EXPECT_EQ(g_calls, (std::vector<std::string>{"flag:-name value:-x value:3 value:-2.5 value:word "}));
}

TEST_F(Dispatch, AFailingStatementStopsTheScriptWithOneError) {
    EXPECT_FALSE(ZGlobal::executeCommand("fail loudly; polyCount a"));
    EXPECT_FALSE(ZGlobal::executeCommand("fail quietly; polyCount b"));
    EXPECT_FALSE(ZGlobal::executeCommand("fail throwing; polyCount c"));
    EXPECT_EQ(g_calls, (std::vector<std::string>{"fail loudly", "fail quietly", "fail throwing"}));
    EXPECT_EQ(errors(), (std::vector<std::string>{
                            "fail: something specific went wrong",
                            "line 1, column 1: fail: Invalid parameter passed",
                            "line 1, column 1: fail: out of range",
                        }));
}

TEST_F(Dispatch, AScriptWithASyntaxErrorRunsNothing) {
    EXPECT_EQ(ZGlobal::executeCommand("polyCount a;\npolyCount \"b;"), ZStatus::kFailure);
    EXPECT_TRUE(g_calls.empty());
    EXPECT_EQ(errors(), std::vector<std::string>{"line 2, column 11: unterminated string"});
}

TEST_F(Dispatch, UnknownNamesAreReportedWhereTheyStand) {
    EXPECT_EQ(ZGlobal::executeCommand("polyCount a;\n  noSuchThing 1"), ZStatus::kNotFound);
    EXPECT_EQ(errors(), std::vector<std::string>{"line 2, column 3: Cannot find procedure \"noSuchThing\"."});
}

TEST_F(Dispatch, NestedCallsPassTheirResultsAsArguments) {
    ASSERT_TRUE(ZGlobal::executeCommand("raw(polyCount(\"mesh1\"), polyCount(\"mesh2\"))"));
    EXPECT_EQ(g_calls.back(), "value:mesh1Shape value:mesh2Shape ");
}

TEST_F(Dispatch, EchoShowsTheScriptAndItsResult) {
    ASSERT_TRUE(ZGlobal::executeCommand("polyCount -s mesh1", true));
    const auto messages = log().messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].kind, oz::cmd::MessageLog::Kind::Echo);
    EXPECT_EQ(messages[0].text, "polyCount -s mesh1");
    EXPECT_EQ(messages[1].kind, oz::cmd::MessageLog::Kind::Result);
    EXPECT_EQ(messages[1].text, "4");
}

TEST_F(Dispatch, RegistryRefusesNamesTheLanguageCannotCall) {
    auto& registry = oz::cmd::CommandRegistry::instance();
    auto creator = [] {
        return std::make_unique<RawArgsCommand>();
    };
    EXPECT_EQ(registry.add({"raw", creator, {}, kOwner}), ZStatus::kInvalidParameter);
    EXPECT_EQ(registry.add({"two words", creator, {}, kOwner}), ZStatus::kInvalidParameter);
    EXPECT_EQ(registry.add({"9lives", creator, {}, kOwner}), ZStatus::kInvalidParameter);
    EXPECT_EQ(registry.add({"noCreator", {}, {}, kOwner}), ZStatus::kInvalidParameter);

    EXPECT_TRUE(registry.remove("raw"));
    EXPECT_EQ(ZGlobal::executeCommand("raw"), ZStatus::kNotFound);
}
