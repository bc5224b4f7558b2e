#include "PythonTest.h"
#include "python/PythonRuntime.h"

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

void writeFile(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

class ScriptProcedures : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        python("import zyvo");
    }
    void TearDown() override {
        for (const char* name : {"createGroupIds", "broken", "greet", "otherPluginReady"})
            oz::cmd::ProcedureRegistry::instance().remove(name);
        PythonTest::TearDown();
    }
};

} // namespace

TEST_F(ScriptProcedures, ArePythonCallablesCalledByName) {
    python("def createGroupIds(name, count):\n"
           "    return ['%s_%d' % (name, i) for i in range(count)]\n"
           "zyvo.registerProcedure('createGroupIds', createGroupIds)");
    ZStringArray ids;
    ASSERT_TRUE(ZGlobal::executeCommand("createGroupIds( \"typeExtrude1\", 3)", ids));
    EXPECT_EQ(ids, ZStringArray({"typeExtrude1_0", "typeExtrude1_1", "typeExtrude1_2"}));

    python("zyvo.registerProcedure('greet', lambda *words: ' '.join(str(w) for w in words))");
    EXPECT_EQ(ZGlobal::executeCommandStringResult("greet TypeManipCtx -flag 2.5"), "TypeManipCtx -flag 2.5");
}

TEST_F(ScriptProcedures, ExceptionsAreErrorsOfTheCallingScript) {
    python("def broken(*args):\n    raise RuntimeError('no extruder named ' + args[0])\n"
           "zyvo.registerProcedure('broken', broken)");
    EXPECT_EQ(ZGlobal::executeCommand("broken \"typeExtrude9\"; print unreached"), ZStatus::kFailure);
    EXPECT_EQ(errors(), std::vector<std::string>{"RuntimeError: no extruder named typeExtrude9"});
    EXPECT_TRUE(infos().size() == 1 && infos()[0].find("Traceback") == 0);

    python("zyvo.registerProcedure('broken', lambda: object())");
    log().clear();
    EXPECT_FALSE(ZGlobal::executeCommand("broken"));
    EXPECT_EQ(errors(),
              std::vector<std::string>{"broken: unsupported result: values of type 'object' are not "
                                       "supported"});
}

TEST_F(ScriptProcedures, BadRegistrationsRaiseInPython) {
    EXPECT_EQ(python("try:\n    zyvo.registerProcedure('two words', print)\nexcept ValueError as e:\n"
                     "    message = str(e)"),
              "");
    EXPECT_EQ(python("message"), "registerProcedure: 'two words' is not a valid procedure name");
    EXPECT_FALSE(ZGlobal::executePythonCommand("zyvo.registerProcedure('greet', 3)"));
    EXPECT_EQ(python("zyvo.deregisterProcedure('neverRegistered')"), "False");
}

TEST_F(ScriptProcedures, ScriptFoldersExtendTheZyvoPackage) {
    const fs::path root = fs::temp_directory_path() / ("oz_scripts_" + std::to_string(::getpid()));
    fs::remove_all(root);
    writeFile(root / "first" / "zyvo" / "app" / "type" / "__init__.py",
              "import zyvo\n"
              "def typeInitPlugin():\n"
              "    zyvo.displayInfo('type scripts ready')\n"
              "zyvo.registerProcedure('typeInitPlugin', typeInitPlugin)\n");
    writeFile(root / "first" / "zyvo" / "app" / "type" / "typeUtilityScripts.py",
              "def flipTypeManipulator():\n    return 'flipped'\n");
    writeFile(root / "second" / "zyvo" / "app" / "other" / "__init__.py",
              "import zyvo\nzyvo.registerProcedure('otherPluginReady', lambda: 1)\n");
    writeFile(root / "second" / "helpers.py", "VALUE = 5\n");

    oz::python::addScriptFolder((root / "first").string());
    python("zyvo.addScriptPath(" + ("'" + (root / "second").string() + "'") + ")");

    python("import zyvo.app.type\nimport zyvo.app.other");
    ASSERT_TRUE(ZGlobal::executeCommand("typeInitPlugin"));
    EXPECT_EQ(infos(), std::vector<std::string>{"type scripts ready"});
    EXPECT_EQ(ZGlobal::executeCommandStringResult("otherPluginReady"), "1");
    EXPECT_EQ(python("import zyvo.app.type.typeUtilityScripts as t\nt.flipTypeManipulator()"), "");
    EXPECT_EQ(python("t.flipTypeManipulator()"), "flipped");
    EXPECT_EQ(python("import helpers\nhelpers.VALUE"), "");
    EXPECT_EQ(python("helpers.VALUE"), "5");
    EXPECT_EQ(python("import zyvo.cmds\nzyvo.cmds.__name__"), "");
    fs::remove_all(root);
}
