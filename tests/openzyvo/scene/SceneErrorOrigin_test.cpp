#include "SceneTest.h"
#include "commands/CommandRegistry.h"

#include <OpenZyvo/ZPxCommand.h>

namespace {

// A command as a plug-in writes one: it warns and fails through ZPxCommand's
// own channels, knowing nothing of files.
class GrumpyCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override {
        displayWarning("grumpy: a warning");
        displayError("grumpy: an error");
        return ZStatus::kFailure;
    }
};

class SceneErrorOrigin : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        ASSERT_TRUE(oz::cmd::CommandRegistry::instance().add(
            {"grumpy", [] { return std::make_unique<GrumpyCommand>(); }, {}, "sceneErrorOrigin"}));
    }
    void TearDown() override {
        oz::cmd::CommandRegistry::instance().removeOwnedBy("sceneErrorOrigin");
        SceneTest::TearDown();
    }
};

TEST_F(SceneErrorOrigin, MessagesOfACommandThatKnowsNoFileCarryTheFileAndLine) {
    write("grumpy.zya", "fileInfo \"version\" \"211\";\n  grumpy;\n");
    EXPECT_EQ(ZFileIO::open(ZString(path("grumpy.zya"))), ZStatus::kFailure);
    const std::string where = path("grumpy.zya") + ": line 2, column 3: ";
    EXPECT_EQ(warnings(), std::vector<std::string>{where + "grumpy: a warning"});
    EXPECT_EQ(errors(), (std::vector<std::string>{
                            where + "grumpy: an error",
                            path("grumpy.zya") + ": 1 error while reading; everything else was loaded"}));
}

TEST_F(SceneErrorOrigin, ASceneOpenedByAScriptNamesItsOwnLines) {
    write("grumpy.zya", "grumpy;\n");
    EXPECT_FALSE(ZGlobal::executeCommand(ZString("print 1;\nfile -o -f \"" + path("grumpy.zya") + "\"")));
    EXPECT_EQ(errors().front(), path("grumpy.zya") + ": line 1, column 1: grumpy: an error");
}

} // namespace
