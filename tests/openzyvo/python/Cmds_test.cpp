#include "PythonTest.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZPxCommand.h>

namespace {

std::vector<std::string> g_seen;

// makeThing: writes down the flags and objects it was given, and answers
// with a result of the type -result asks for.
class MakeThingCommand : public ZPxCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-n", "-name", ZSyntax::kString);
        syntax.addFlag("-t", "-translate", ZSyntax::kDouble, ZSyntax::kDouble, ZSyntax::kDouble);
        syntax.addFlag("-v", "-visible");
        syntax.addFlag("-l", "-locked", ZSyntax::kBoolean);
        syntax.addFlag("-g", "-group", ZSyntax::kString, ZSyntax::kLong);
        syntax.makeFlagMultiUse("-group");
        syntax.addFlag("-r", "-result", ZSyntax::kString);
        syntax.setObjectType(ZSyntax::kStringObjects);
        syntax.enableQuery();
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase db(syntax(), args, &status);
        if (!status)
            return status;
        std::string seen;
        if (db.isQuery())
            seen += "query ";
        if (db.isFlagSet("-name"))
            seen += "name=" + db.flagArgumentString("-name", 0).asStdString() + " ";
        if (db.isFlagSet("-t") && !db.isQuery())
            seen += "t=" + std::to_string(db.flagArgumentDouble("-t", 0)).substr(0, 3) + "," +
                    std::to_string(db.flagArgumentDouble("-t", 2)).substr(0, 3) + " ";
        if (db.isFlagSet("-t") && db.isQuery())
            seen += "t ";
        if (db.isFlagSet("-visible"))
            seen += "visible ";
        if (db.isFlagSet("-locked"))
            seen += std::string("locked=") + (db.flagArgumentBool("-locked", 0) ? "on" : "off") + " ";
        for (unsigned int use = 0; use < db.numberOfFlagUses("-group"); ++use) {
            ZArgList group;
            db.getFlagArgumentList("-group", use, group);
            seen += "group=" + group.asString(0).asStdString() + ":" + std::to_string(group.asInt(1)) + " ";
        }
        ZStringArray objects;
        db.getObjects(objects);
        for (const ZString& object : objects)
            seen += object.asStdString() + " ";
        g_seen.push_back(seen);

        const ZString kind = db.isFlagSet("-result") ? db.flagArgumentString("-result", 0) : ZString("name");
        if (kind == "int")
            setResult(3);
        else if (kind == "float")
            setResult(2.5);
        else if (kind == "bool")
            setResult(true);
        else if (kind == "ints")
            setResult(ZIntArray({1, 2}));
        else if (kind == "strings")
            setResult(ZStringArray({"a", "b"}));
        else if (kind == "nothing")
            clearResult();
        else
            setResult("thing1");
        return ZStatus::kSuccess;
    }
};

class Cmds : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        g_seen.clear();
        addCommand<MakeThingCommand>("makeThing", MakeThingCommand::newSyntax);
        python("import zyvo.cmds as cmds");
    }
};

} // namespace

TEST_F(Cmds, KeywordArgumentsAreFlagsAndPositionalsAreObjects) {
    python("cmds.makeThing('a', ['b', 'c'], name='t', translate=(1, 2, 3), visible=True, locked=False)");
    python("cmds.makeThing(n='short', visible=False, group=[('cap', 1), ('bevel', 2)])");
    python("cmds.makeThing('x', q=True, translate=True)");
    EXPECT_EQ(g_seen, (std::vector<std::string>{
                          "name=t t=1.0,3.0 visible locked=off a b c ",
                          "name=short group=cap:1 group=bevel:2 ",
                          "query t x ",
                      }));
}

TEST_F(Cmds, ResultsBecomePythonValues) {
    EXPECT_EQ(python("repr(cmds.makeThing())"), "'thing1'");
    EXPECT_EQ(python("repr(cmds.makeThing(result='int'))"), "3");
    EXPECT_EQ(python("repr(cmds.makeThing(result='float'))"), "2.5");
    EXPECT_EQ(python("repr(cmds.makeThing(result='bool'))"), "True");
    EXPECT_EQ(python("repr(cmds.makeThing(result='ints'))"), "[1, 2]");
    EXPECT_EQ(python("repr(cmds.makeThing(result='strings'))"), "['a', 'b']");
    EXPECT_EQ(python("repr(cmds.makeThing(result='nothing'))"), "None");
}

TEST_F(Cmds, AFailingCommandRaisesRuntimeErrorWithItsMessage) {
    EXPECT_EQ(python("try:\n"
                     "    cmds.makeThing(colour='red')\n"
                     "    outcome = 'no error'\n"
                     "except RuntimeError as error:\n"
                     "    outcome = str(error)\n"),
              "");
    EXPECT_EQ(python("outcome"), "makeThing: invalid flag '-colour'");

    log().clear();
    EXPECT_FALSE(ZGlobal::executePythonCommand("cmds.makeThing(translate=(1, 'x', 2))"));
    // Shown once, by the command; the RuntimeError it becomes is not shown again.
    EXPECT_EQ(errors(),
              (std::vector<std::string>{"makeThing: flag '-translate' expects a number as argument 2, "
                                        "found 'x'"}));
}

TEST_F(Cmds, FailingCommandsDoNotCopyTheLog) {
    const std::size_t copiesBefore = log().copiesMade();
    EXPECT_EQ(python("import zyvo\n"
                     "for _ in range(200):\n"
                     "    try:\n"
                     "        cmds.makeThing(colour='red')\n"
                     "    except RuntimeError:\n"
                     "        pass\n"
                     "    try:\n"
                     "        zyvo.eval('makeThing -colour red')\n"
                     "    except RuntimeError as error:\n"
                     "        last = str(error)\n"),
              "");
    EXPECT_EQ(log().copiesMade(), copiesBefore);
    EXPECT_EQ(python("last"), "line 1, column 1: makeThing: invalid flag '-colour'");
}

TEST_F(Cmds, ValuesPythonCannotPassAreTypeErrors) {
    EXPECT_FALSE(ZGlobal::executePythonCommand("cmds.makeThing(name=object())"));
    ASSERT_EQ(errors().size(), 1u);
    EXPECT_EQ(errors()[0], "TypeError: makeThing: values of type 'object' are not supported");
    EXPECT_TRUE(g_seen.empty());
}

TEST_F(Cmds, CommandsAreFoundWhenCalledAndGoneWhenDeregistered) {
    EXPECT_EQ(python("'makeThing' in dir(cmds) and 'undo' in dir(cmds)"), "True");
    EXPECT_EQ(python("cmds.makeThing.__name__"), "makeThing");
    oz::cmd::CommandRegistry::instance().remove("makeThing");
    EXPECT_EQ(python("hasattr(cmds, 'makeThing')"), "False");
    EXPECT_FALSE(ZGlobal::executePythonCommand("cmds.makeThing()"));
    EXPECT_EQ(errors(),
              std::vector<std::string>{"AttributeError: module 'zyvo.cmds' has no attribute 'makeThing'"});
}

TEST_F(Cmds, PythonCanRunTheCommandLanguage) {
    python("import zyvo");
    EXPECT_EQ(python("zyvo.eval('makeThing -r int obj') + 1"), "4");
    EXPECT_FALSE(ZGlobal::executePythonCommand("zyvo.eval('makeThing -r')"));
    EXPECT_EQ(errors(),
              std::vector<std::string>{"line 1, column 1: makeThing: flag '-r' needs 1 argument, found 0"});
}

TEST_F(Cmds, EvalDeferredReadsItsScriptInTheCallersLanguage) {
    python("import zyvo\n"
           "import zyvo.cmds as cmds\n"
           "deferredFromPython = 0\n"
           "cmds.evalDeferred('deferredFromPython = 1')");
    EXPECT_EQ(python("deferredFromPython"), "1");

    // The same command run from the command language defers command-language text.
    python("zyvo.eval('evalDeferred \"python \\\\\"deferredFromLanguage = 2\\\\\"\"')");
    EXPECT_EQ(python("deferredFromLanguage"), "2");
    EXPECT_TRUE(errors().empty()) << errors().back();
}
