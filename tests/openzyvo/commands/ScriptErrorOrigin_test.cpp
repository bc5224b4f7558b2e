#include "CommandTest.h"
#include "commands/Interpreter.h"

#include <OpenZyvo/ZPxCommand.h>

namespace {

using oz::cmd::runScript;

// Reports through ZPxCommand's own channel, as a plug-in's command does.
class GrumpyCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override {
        displayError("grumpy: an error");
        return ZStatus::kFailure;
    }
};

// Runs script text of its own, as `eval` does.
class NestedCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override { return runScript("print 1;\ngrumpy;").status; }
};

class ScriptErrorOrigin : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        addCommand<GrumpyCommand>("grumpy");
        addCommand<NestedCommand>("nested");
    }
};

TEST_F(ScriptErrorOrigin, ErrorsACommandReportsItselfCarryTheFileAndLine) {
    EXPECT_FALSE(runScript("print 1;\n  grumpy;", {}, "job.zys").status);
    EXPECT_EQ(errors(), std::vector<std::string>{"job.zys: line 2, column 3: grumpy: an error"});
}

TEST_F(ScriptErrorOrigin, SyntaxAndLookupErrorsNameTheFile) {
    EXPECT_FALSE(runScript("print 1;\nprint \"open", {}, "job.zys").status);
    EXPECT_FALSE(runScript("noSuchThing 1", {}, "job.zys").status);
    EXPECT_EQ(errors(), (std::vector<std::string>{"job.zys: line 2, column 7: unterminated string",
                                                  "job.zys: line 1, column 1: Cannot find procedure "
                                                  "\"noSuchThing\"."}));
}

TEST_F(ScriptErrorOrigin, ScriptTextRunByAStatementKeepsThatStatementsPlace) {
    EXPECT_FALSE(runScript("print 1;\nnested;", {}, "job.zys").status);
    EXPECT_EQ(errors(), std::vector<std::string>{"job.zys: line 2, column 1: grumpy: an error"});
}

TEST_F(ScriptErrorOrigin, ReportingAFailureDoesNotCopyTheLog) {
    const std::size_t before = log().copiesMade();
    EXPECT_FALSE(runScript("print 1;\ngrumpy;", {}, "job.zys").status);
    EXPECT_FALSE(runScript("noSuchThing", {}, "job.zys").status);
    EXPECT_EQ(log().copiesMade(), before);
}

} // namespace
