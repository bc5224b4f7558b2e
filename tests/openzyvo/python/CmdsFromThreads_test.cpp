#include "PythonTest.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZPxCommand.h>
#include <thread>

namespace {

// echoValue "text": answers with its argument, after giving other threads
// time to run, so that two calls running at once would overlap.
class EchoValueCommand : public ZPxCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase database(syntax(), args, &status);
        ZString text;
        database.getCommandArgument(0, text);
        for (int i = 0; i < 20; ++i)
            std::this_thread::yield();
        setResult(text);
        return status;
    }
};

class CmdsFromThreads : public PythonTest {
protected:
    void SetUp() override {
        PythonTest::SetUp();
        addCommand<EchoValueCommand>("echoValue", EchoValueCommand::newSyntax);
        python("import threading\nimport zyvo\nimport zyvo.cmds as cmds");
    }
};

} // namespace

TEST_F(CmdsFromThreads, CommandsFromOtherThreadsAreRefusedAndTheMainThreadKeepsItsResults) {
    python("outcomes = {}\n"
           "def work(n):\n"
           "    got = set()\n"
           "    for i in range(100):\n"
           "        try:\n"
           "            got.add(cmds.echoValue('worker%d_%d' % (n, i)))\n"
           "        except RuntimeError as error:\n"
           "            got.add(str(error))\n"
           "    outcomes[n] = sorted(got)\n"
           "threads = [threading.Thread(target=work, args=(n,)) for n in range(4)]\n"
           "for thread in threads:\n"
           "    thread.start()\n"
           "mainResults = [cmds.echoValue('main%d' % i) for i in range(400)]\n"
           "for thread in threads:\n"
           "    thread.join()\n");
    EXPECT_EQ(python("mainResults == ['main%d' % i for i in range(400)]"), "True");
    EXPECT_EQ(python("sorted(outcomes)"), "[0, 1, 2, 3]");
    EXPECT_EQ(python("set(tuple(got) for got in outcomes.values())"),
              "{('echoValue: commands run on the main thread only; from another thread, queue the work "
              "with zyvo.executeDeferred(function)',)}");
    EXPECT_TRUE(errors().empty()) << errors().front();
}

TEST_F(CmdsFromThreads, EvalFromAnotherThreadIsRefused) {
    python("def work():\n"
           "    global refusal\n"
           "    try:\n"
           "        zyvo.eval('echoValue \"x\"')\n"
           "    except RuntimeError as error:\n"
           "        refusal = str(error)\n"
           "thread = threading.Thread(target=work)\n"
           "thread.start()\n"
           "thread.join()");
    EXPECT_EQ(python("refusal.startswith('eval: commands run on the main thread only')"), "True");
}

TEST_F(CmdsFromThreads, ExecuteDeferredRunsTheWorkOfOtherThreadsOnTheMainThread) {
    python("deferred = []\n"
           "def work(n):\n"
           "    zyvo.executeDeferred(lambda: deferred.append((cmds.echoValue('worker%d' % n),\n"
           "                                                  threading.current_thread() is\n"
           "                                                  threading.main_thread())))\n"
           "threads = [threading.Thread(target=work, args=(n,)) for n in range(4)]\n"
           "for thread in threads:\n"
           "    thread.start()\n"
           "for thread in threads:\n"
           "    thread.join()\n"
           "queuedWhileRunning = len(deferred)");
    // The queued work runs once the Python command has finished.
    EXPECT_EQ(python("queuedWhileRunning"), "0");
    EXPECT_EQ(python("sorted(deferred)"),
              "[('worker0', True), ('worker1', True), ('worker2', True), ('worker3', True)]");

    EXPECT_FALSE(ZGlobal::executePythonCommand("zyvo.executeDeferred(3)"));
    EXPECT_EQ(errors(), std::vector<std::string>{"TypeError: executeDeferred: needs a callable"});

    // A deferred function that fails is reported when it runs.
    log().clear();
    python("zyvo.executeDeferred(lambda: 1 / 0)");
    EXPECT_EQ(errors(), std::vector<std::string>{"ZeroDivisionError: division by zero"});
}
