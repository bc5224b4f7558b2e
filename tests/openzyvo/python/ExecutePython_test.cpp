#include "PythonTest.h"

#include <thread>

using ExecutePython = PythonTest;

TEST_F(ExecutePython, ExpressionsGiveTheirValueAsText) {
    EXPECT_EQ(python("round(3.14159, 2)"), "3.14");
    EXPECT_EQ(python("'text'"), "text");
    EXPECT_EQ(python("[1, 'a']"), "[1, 'a']");
    EXPECT_EQ(python("None"), "");
    EXPECT_EQ(python("value = 21"), "");
    EXPECT_EQ(python("import math\nanswer = value * 2"), "");
}

TEST_F(ExecutePython, CallsShareTheMainNamespace) {
    python("import random\nimport string\nshared = 7");
    EXPECT_EQ(python("shared + 1"), "8");
    const double generated = std::stod(python("round(random.uniform(0,5), 2)"));
    EXPECT_GE(generated, 0.0);
    EXPECT_LE(generated, 5.0);
}

TEST_F(ExecutePython, ExceptionsBecomeErrorsAndFailTheCall) {
    ZString result = "untouched";
    EXPECT_EQ(ZGlobal::executePythonCommand("1 / 0", result), ZStatus::kFailure);
    EXPECT_EQ(result, "");
    EXPECT_EQ(errors(), std::vector<std::string>{"ZeroDivisionError: division by zero"});

    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("def broken(:\n    pass"));
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_NE(errors()[0].find("SyntaxError"), std::string::npos);

    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("def inner():\n    raise KeyError('font')\ninner()"));
    EXPECT_EQ(errors(), std::vector<std::string>{"KeyError: 'font'"});
    ASSERT_EQ(infos().size(), 1u);
    EXPECT_NE(infos()[0].find("in inner"), std::string::npos);
}

TEST_F(ExecutePython, SystemExitDoesNotEndTheHost) {
    EXPECT_FALSE(ZGlobal::executePythonCommand("import sys\nsys.exit(3)"));
    EXPECT_EQ(python("1 + 1"), "2");
}

TEST_F(ExecutePython, TheCommandLanguageCanRunPython) {
    EXPECT_EQ(ZGlobal::executeCommandStringResult("python \"6 * 7\""), "42");
    EXPECT_EQ(ZGlobal::executeCommand("python \"raise ValueError('bad')\""), ZStatus::kFailure);
    EXPECT_EQ(errors(), std::vector<std::string>{"ValueError: bad"});
}

TEST_F(ExecutePython, OtherThreadsCanRunPythonToo) {
    std::string fromThread;
    std::thread worker(
        [&] { fromThread = ZGlobal::executePythonCommandStringResult("sum(range(5))").asStdString(); });
    worker.join();
    EXPECT_EQ(fromThread, "10");
    EXPECT_EQ(python("'main thread still fine'"), "main thread still fine");
}

TEST_F(ExecutePython, DeferredPythonRunsAfterTheCommandThatQueuedIt) {
    ASSERT_TRUE(ZGlobal::executeCommand("evalDeferred -python \"import zyvo; zyvo.displayInfo('deferred')\"; "
                                        "print now"));
    EXPECT_EQ(infos(), (std::vector<std::string>{"deferred", "now"}));

    log().clear();
    python("import zyvo\nimport zyvo.cmds as cmds\n"
           "cmds.evalDeferred(\"zyvo.displayInfo('later')\")\n"
           "zyvo.displayInfo('python finished')");
    EXPECT_EQ(infos(), (std::vector<std::string>{"python finished", "later"}));
}
