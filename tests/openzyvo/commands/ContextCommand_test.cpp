#include "CommandTest.h"
#include "commands/ContextCommands.h"

#include <OpenZyvo/ZGlobal.h>

namespace {

// Contexts belong to the tool side; here they are just distinct addresses.
int g_contextStorage[4];
int g_made = 0;

ZPxContext* fakeContext() {
    return reinterpret_cast<ZPxContext*>(&g_contextStorage[g_made++ % 4]);
}

// A context command whose instance remembers a size across edits.
class ToolContextCommand : public ZPxContextCommand {
public:
    ZPxContext* makeObj() override { return fakeContext(); }

    ZStatus appendSyntax() override { return syntax().addFlag("-sz", "-size", ZSyntax::kDouble); }

    ZStatus doEditFlags() override {
        const ZArgParser args = parser();
        if (args.isFlagSet("-size"))
            m_size = args.flagArgumentDouble("-size", 0);
        return ZStatus::kSuccess;
    }

    ZStatus doQueryFlags() override {
        if (parser().isFlagSet("-size"))
            setResult(m_size);
        return ZStatus::kSuccess;
    }

private:
    double m_size = 1.0;
};

class ContextCommand : public CommandTest {
protected:
    void SetUp() override {
        CommandTest::SetUp();
        auto& table = oz::cmd::ContextCommands::instance();
        table.setHooks([this](const std::string& name, ZPxContext*) { m_adopted.push_back(name); },
                       [this](const std::string& name, ZPxContext*) { m_released.push_back(name); });
        ASSERT_TRUE(table.registerCommand(
            "toolCtx", [] { return std::make_unique<ToolContextCommand>(); }, kOwner));
    }

    void TearDown() override {
        oz::cmd::ContextCommands::instance().deregisterCommand("toolCtx");
        oz::cmd::ContextCommands::instance().setHooks({}, {});
        CommandTest::TearDown();
    }

    double querySize(const char* context) {
        double size = 0.0;
        EXPECT_TRUE(ZGlobal::executeCommand(ZString("toolCtx -q -size ") + context, size));
        return size;
    }

    std::vector<std::string> m_adopted;
    std::vector<std::string> m_released;
};

} // namespace

TEST_F(ContextCommand, MakesNamedContextsThatKeepTheirCommand) {
    EXPECT_EQ(ZGlobal::executeCommandStringResult("toolCtx"), "toolCtx1");
    EXPECT_EQ(ZGlobal::executeCommandStringResult("toolCtx -size 4 TypeManipCtx"), "TypeManipCtx");
    EXPECT_EQ(m_adopted, (std::vector<std::string>{"toolCtx1", "TypeManipCtx"}));
    EXPECT_NE(oz::cmd::ContextCommands::instance().find("TypeManipCtx"), nullptr);

    EXPECT_DOUBLE_EQ(querySize("TypeManipCtx"), 4.0);
    EXPECT_DOUBLE_EQ(querySize("toolCtx1"), 1.0);
    ASSERT_TRUE(ZGlobal::executeCommand("toolCtx -e -size 2.5 toolCtx1"));
    EXPECT_DOUBLE_EQ(querySize("toolCtx1"), 2.5);
    EXPECT_DOUBLE_EQ(querySize("TypeManipCtx"), 4.0);
}

TEST_F(ContextCommand, BadCallsAreErrors) {
    ASSERT_TRUE(ZGlobal::executeCommand("toolCtx TypeManipCtx"));
    EXPECT_FALSE(ZGlobal::executeCommand("toolCtx TypeManipCtx"));
    EXPECT_EQ(ZGlobal::executeCommand("toolCtx -e -size 1 missingCtx"), ZStatus::kNotFound);
    EXPECT_FALSE(ZGlobal::executeCommand("toolCtx -e -size"));
    EXPECT_EQ(errors(), (std::vector<std::string>{
                            "toolCtx: a context named \"TypeManipCtx\" already exists",
                            "toolCtx: no context named \"missingCtx\" was made by this command",
                            "toolCtx: flag '-size' needs 1 argument, found 0",
                        }));
}

TEST_F(ContextCommand, DeregisteringReleasesItsContexts) {
    ASSERT_TRUE(ZGlobal::executeCommand("toolCtx a; toolCtx b"));
    ASSERT_TRUE(oz::cmd::ContextCommands::instance().deregisterCommand("toolCtx"));
    EXPECT_EQ(m_released, (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(oz::cmd::ContextCommands::instance().contextNames().empty());
    EXPECT_EQ(ZGlobal::executeCommand("toolCtx"), ZStatus::kNotFound);
}
