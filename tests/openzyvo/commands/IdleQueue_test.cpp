#include "CommandTest.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPxCommand.h>

namespace {

// later "script": queues the script on idle from inside a command, as a node
// or callback does.
class LaterCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList& args) override {
        const ZString script = args.asString(0);
        displayInfo("queue " + script);
        return ZGlobal::executeCommandOnIdle(script);
    }
};

class Idle : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        addCommand<LaterCommand>("later");
    }
};

} // namespace

TEST_F(Idle, QueuedCommandsRunAfterTheTopLevelCommand) {
    ASSERT_TRUE(ZGlobal::executeCommand("later \"print idle\"; print next"));
    EXPECT_EQ(infos(), (std::vector<std::string>{"queue print idle", "idle", "next"}));
}

TEST_F(Idle, CommandsQueuedWhileDrainingRunInTheSameDrainInOrder) {
    ASSERT_TRUE(ZGlobal::executeCommand(
        "evalDeferred \"print a; evalDeferred \\\"print c\\\"\"; print start; evalDeferred \"print b\""));
    // Every top-level statement drains the queue before the next one runs.
    EXPECT_EQ(infos(), (std::vector<std::string>{"a", "c", "start", "b"}));
}

TEST_F(Idle, AnIdleQueueOfNestedCommandsWaitsForTheOutermost) {
    addProcedure("batch", [](const std::vector<oz::cmd::Value>&, oz::cmd::Value&) {
        ZGlobal::executeCommand("evalDeferred \"print deferred\"");
        ZGlobal::displayInfo("batch done");
        return ZStatus(ZStatus::kSuccess);
    });
    ASSERT_TRUE(ZGlobal::executeCommand("batch"));
    EXPECT_EQ(infos(), (std::vector<std::string>{"batch done", "deferred"}));
}

TEST_F(Idle, ACommandThatKeepsRequeuingItselfIsCutOff) {
    addProcedure("forever", [](const std::vector<oz::cmd::Value>&, oz::cmd::Value&) {
        return ZGlobal::executeCommandOnIdle("forever");
    });
    ASSERT_TRUE(ZGlobal::executeCommand("forever"));
    EXPECT_EQ(oz::cmd::IdleQueue::instance().size(), 0u);
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_NE(errors()[0].find("Idle queue keeps refilling itself"), std::string::npos);
}

TEST_F(Idle, AFailingIdleCommandDoesNotStopTheOthers) {
    ZGlobal::executeCommandOnIdle("noSuchCommand");
    ZGlobal::executeCommandOnIdle("print after");
    oz::cmd::IdleQueue::instance().drain();
    EXPECT_EQ(errors(),
              std::vector<std::string>{"line 1, column 1: Cannot find procedure \"noSuchCommand\"."});
    EXPECT_EQ(infos(), std::vector<std::string>{"after"});
}
