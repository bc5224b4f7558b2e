#include "PythonTest.h"

namespace {

class NestedErrors : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        python("import zyvo\nimport zyvo.cmds as cmds");
    }
    void TearDown() override {
        oz::cmd::ProcedureRegistry::instance().remove("deeper");
        PythonTest::TearDown();
    }

    static std::size_t shownCharacters() {
        std::size_t total = 0;
        for (const auto& message : log().messages())
            total += message.text.size();
        return total;
    }
};

} // namespace

TEST_F(NestedErrors, RecursionThroughCommandsShowsOneErrorLine) {
    python("zyvo.registerProcedure('deeper', lambda: zyvo.eval('deeper'))");
    log().clear();
    EXPECT_FALSE(ZGlobal::executeCommand("deeper"));
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_EQ(errors()[0].find('\n'), std::string::npos);
    EXPECT_EQ(errors()[0].find("RuntimeError"), std::string::npos) << errors()[0].substr(0, 200);
    EXPECT_LT(shownCharacters(), 1000u);
}

TEST_F(NestedErrors, RecursionThroughPythonCommandsShowsOneErrorLine) {
    python("def deeper():\n    cmds.python('deeper()')");
    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("deeper()"));
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_EQ(errors()[0].find('\n'), std::string::npos) << errors()[0];
    EXPECT_LT(shownCharacters(), 4000u) << log().messages()[0].text.substr(0, 3000);
}

TEST_F(NestedErrors, PythonRecursionLimitShowsOneErrorLine) {
    python("def deeper():\n    deeper()");
    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("deeper()"));
    EXPECT_EQ(errors(), std::vector<std::string>{"RecursionError: maximum recursion depth exceeded"});
    EXPECT_LT(shownCharacters(), 4000u);
}

TEST_F(NestedErrors, AnErrorCaughtAndRaisedAgainInPythonIsShownOnce) {
    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("try:\n"
                                               "    zyvo.eval('noSuchProcedure')\n"
                                               "except RuntimeError as error:\n"
                                               "    raise error"));
    EXPECT_EQ(errors().size(), 1u);
    EXPECT_FALSE(ZGlobal::executePythonCommand("raise RuntimeError('made by the script')"));
    EXPECT_EQ(errors().back(), "RuntimeError: made by the script");
}
