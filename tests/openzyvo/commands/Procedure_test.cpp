#include "CommandTest.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPxCommand.h>

using oz::cmd::Value;

namespace {

class Procedures : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        addProcedure("record", [this](const std::vector<Value>& args, Value& result) {
            m_calls.push_back(args);
            result = static_cast<int>(args.size());
            return ZStatus(ZStatus::kSuccess);
        });
    }

    std::vector<std::vector<Value>> m_calls;
};

class ShadowCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override {
        setResult("command");
        return ZStatus::kSuccess;
    }
};

} // namespace

TEST_F(Procedures, AreCalledByNameInBothForms) {
    int count = 0;
    ASSERT_TRUE(ZGlobal::executeCommand("record( \"typeExtrude1\", 3)", count));
    EXPECT_EQ(count, 2);
    ASSERT_TRUE(ZGlobal::executeCommand("record TypeManipCtx -flag 2.5;"));
    ASSERT_TRUE(ZGlobal::executeCommand("record"));

    ASSERT_EQ(m_calls.size(), 3u);
    EXPECT_EQ(m_calls[0], (std::vector<Value>{std::string("typeExtrude1"), 3}));
    EXPECT_EQ(m_calls[1], (std::vector<Value>{std::string("TypeManipCtx"), std::string("-flag"), 2.5}));
    EXPECT_TRUE(m_calls[2].empty());
}

TEST_F(Procedures, ARegisteredCommandWinsOverAProcedureOfTheSameName) {
    addProcedure("shadow", [](const std::vector<Value>&, Value& result) {
        result = std::string("procedure");
        return ZStatus(ZStatus::kSuccess);
    });
    EXPECT_EQ(ZGlobal::executeCommandStringResult("shadow"), "procedure");
    addCommand<ShadowCommand>("shadow");
    EXPECT_EQ(ZGlobal::executeCommandStringResult("shadow"), "command");
}

TEST_F(Procedures, AFailingProcedureStopsTheScript) {
    addProcedure("broken", [](const std::vector<Value>&, Value&) { return ZStatus(ZStatus::kFailure); });
    EXPECT_FALSE(ZGlobal::executeCommand("record 1; broken; record 2"));
    EXPECT_EQ(m_calls.size(), 1u);
    EXPECT_EQ(errors(), std::vector<std::string>{"line 1, column 11: broken: Unexpected internal failure"});
}

TEST_F(Procedures, GoAwayWithTheirOwner) {
    oz::cmd::ProcedureRegistry::instance().removeOwnedBy(kOwner);
    EXPECT_EQ(ZGlobal::executeCommand("record"), ZStatus::kNotFound);
}

TEST_F(Procedures, EndlessRecursionStopsWithAnError) {
    addProcedure("recurse",
                 [](const std::vector<Value>&, Value&) { return ZGlobal::executeCommand("recurse"); });
    EXPECT_FALSE(ZGlobal::executeCommand("recurse"));
    ASSERT_FALSE(errors().empty());
    EXPECT_EQ(errors()[0], "line 1, column 1: recurse: commands are nested too deeply");
}
