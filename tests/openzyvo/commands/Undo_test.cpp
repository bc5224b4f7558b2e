#include "CommandTest.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPxCommand.h>

namespace {

int g_value = 0;

// add N: adds N to a counter; undo takes it off again.
class AddCommand : public ZPxCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addArg(ZSyntax::kLong);
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase database(syntax(), args, &status);
        if (!status)
            return status;
        database.getCommandArgument(0, m_amount);
        return redoIt();
    }
    ZStatus redoIt() override {
        g_value += m_amount;
        return ZStatus::kSuccess;
    }
    ZStatus undoIt() override {
        g_value -= m_amount;
        return ZStatus::kSuccess;
    }
    bool isUndoable() const override { return true; }

private:
    int m_amount = 0;
};

// addTwice N: runs `add N` twice through the script interpreter.
class AddTwiceCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        const ZString amount = args.asString(0);
        ZGlobal::executeCommand("add " + amount + "; add " + amount, false, true);
        return ZStatus::kSuccess;
    }
};

class Undo : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        g_value = 0;
        addCommand<AddCommand>("add", AddCommand::newSyntax);
        addCommand<AddTwiceCommand>("addTwice");
    }

    void run(const char* script) { ASSERT_TRUE(ZGlobal::executeCommand(script, false, true)) << script; }
};

} // namespace

TEST_F(Undo, UndoAndRedoStepThroughTopLevelCommands) {
    run("add 1; add 10; add 100");
    EXPECT_EQ(g_value, 111);
    run("undo");
    EXPECT_EQ(g_value, 11);
    run("undo; undo");
    EXPECT_EQ(g_value, 0);
    run("redo");
    EXPECT_EQ(g_value, 1);
    run("redo; redo");
    EXPECT_EQ(g_value, 111);
}

TEST_F(Undo, NestedCommandsAreUndoneAsOneStep) {
    run("add 1; addTwice 5");
    EXPECT_EQ(g_value, 11);
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 2u);
    run("undo");
    EXPECT_EQ(g_value, 1);
    run("redo");
    EXPECT_EQ(g_value, 11);
}

TEST_F(Undo, ANewCommandDropsWhatCouldBeRedone) {
    run("add 1; add 2; undo");
    run("add 4");
    run("redo");
    EXPECT_EQ(g_value, 5);
    EXPECT_EQ(log().texts(oz::cmd::MessageLog::Kind::Warning),
              std::vector<std::string>{"There are no more commands to redo."});
}

TEST_F(Undo, CommandsRunWithoutUndoAreNotRecorded) {
    ASSERT_TRUE(ZGlobal::executeCommand("add 3", false, false));
    EXPECT_EQ(g_value, 3);
    run("undo");
    EXPECT_EQ(g_value, 3);
    EXPECT_EQ(log().texts(oz::cmd::MessageLog::Kind::Warning),
              std::vector<std::string>{"There are no more commands to undo."});
}

TEST_F(Undo, FailedCommandsAreNotRecorded) {
    run("add 2");
    EXPECT_FALSE(ZGlobal::executeCommand("add notANumber", false, true));
    run("undo");
    EXPECT_EQ(g_value, 0);
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 0u);
}

TEST_F(Undo, UnloadingAPluginForgetsItsSteps) {
    run("add 1");
    run("add 2");
    oz::cmd::UndoQueue::instance().forgetOwnedBy(kOwner);
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 0u);
    run("undo");
    EXPECT_EQ(g_value, 3);
}
