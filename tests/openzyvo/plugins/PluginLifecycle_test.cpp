#include "PluginTest.h"
#include "commands/CommandRegistry.h"
#include "commands/ProcedureRegistry.h"
#include "graph/NodeTypeRegistry.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSceneMessage.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZStringResource.h>
#include <OpenZyvoRender/ZDrawRegistry.h>
#include <OpenZyvoRender/ZPxDrawOverride.h>
#include <filesystem>
#include <memory>

namespace {

const char* const kClassification = "drawdb/geometry/sampleNode";

bool hasCommand(const std::string& name) {
    return oz::cmd::CommandRegistry::instance().find(name).has_value();
}

bool hasProcedure(const std::string& name) {
    return oz::cmd::ProcedureRegistry::instance().find(name).has_value();
}

ZObject pluginObject(const std::string& name) {
    return oz::ObjectAccess::wrap(oz::plugins::PluginRegistry::instance().find(name));
}

class PluginLifecycle : public PluginTest {
protected:
    std::shared_ptr<oz::Node> createSampleNode(const char* name) {
        std::shared_ptr<oz::Node> node;
        EXPECT_TRUE(oz::Graph::instance().createNode("sampleNode", name, node));
        return node;
    }

    static ZPlug plug(const std::string& name) {
        ZPlug plug;
        EXPECT_TRUE(oz::Graph::instance().findPlug(ZString(name), plug)) << name;
        return plug;
    }
};

TEST_F(PluginLifecycle, LoadedPluginIsUsedThenBlockedByItsNodesThenUnloaded) {
    EXPECT_EQ(result("loadPlugin Sample"), "Sample");
    EXPECT_EQ(result("sampleCommand -value 2"), "3");

    auto node = createSampleNode("sample1");
    ASSERT_TRUE(node);
    ASSERT_TRUE(plug("sample1.input").setValue(21.0));
    EXPECT_DOUBLE_EQ(plug("sample1.output").asDouble(), 42.0) << "the plug-in's compute runs";

    EXPECT_FALSE(run("unloadPlugin Sample").status);
    EXPECT_EQ(lastError(), "Cannot unload plug-in Sample: nodes of its types exist (sample1)");
    EXPECT_EQ(result("sampleCommand -v 5"), "6") << "a refused unload leaves the plug-in working";

    ASSERT_TRUE(oz::Graph::instance().deleteNode(*node));
    EXPECT_EQ(result("unloadPlugin Sample"), "Sample");
    EXPECT_FALSE(hasCommand("sampleCommand"));
    EXPECT_FALSE(oz::NodeTypeRegistry::instance().find(ZString("sampleNode")));
    EXPECT_FALSE(run("sampleCommand -v 1").status);
    EXPECT_EQ(result("pluginInfo -q -loaded Sample"), "false");
}

TEST_F(PluginLifecycle, UnloadRemovesWhatThePluginLeftRegistered) {
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    EXPECT_TRUE(hasCommand("sampleContext"));
    EXPECT_TRUE(hasProcedure("sampleInitPlugin")) << "registered by the plug-in's scripts";
    EXPECT_TRUE(hasProcedure("sampleInitStrings"));
    EXPECT_TRUE(ZStringResource::isRegistered(ZStringResourceId("Sample", "kSampleGreeting", "")));
    ASSERT_TRUE(ZHWRender::ZDrawRegistry::hasDrawOverride(kClassification));
    std::unique_ptr<ZHWRender::ZPxDrawOverride> drawOverride(
        ZHWRender::ZDrawRegistry::createDrawOverride(kClassification, ZObject()));
    ASSERT_TRUE(drawOverride);
    EXPECT_TRUE(drawOverride->isBounded(ZDagPath()));
    drawOverride.reset();

    ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    EXPECT_FALSE(hasCommand("sampleContext"));
    EXPECT_FALSE(hasProcedure("sampleInitPlugin"));
    EXPECT_FALSE(hasProcedure("sampleInitStrings"));
    EXPECT_FALSE(ZHWRender::ZDrawRegistry::hasDrawOverride(kClassification));
}

TEST_F(PluginLifecycle, FailingUninitialiseStillUnloads) {
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    // As when the plug-in's scripts lost the procedure it runs last.
    oz::cmd::ProcedureRegistry::instance().remove("sampleUninitPlugin");
    EXPECT_FALSE(run("unloadPlugin Sample").status);
    EXPECT_NE(lastError().find("Plug-in Sample: uninitializePlugin failed"), std::string::npos)
        << lastError();
    EXPECT_TRUE(oz::plugins::PluginRegistry::instance().names().empty());
    EXPECT_FALSE(hasCommand("sampleContext")) << "what it left registered is removed all the same";
    EXPECT_FALSE(ZHWRender::ZDrawRegistry::hasDrawOverride(kClassification));
    EXPECT_EQ(result("loadPlugin Sample"), "Sample") << "and it loads again";
}

TEST_F(PluginLifecycle, UndoAfterUnloadNeverReachesThePlugin) {
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    ASSERT_TRUE(run("sampleCommand -v 1", true).status);
    ASSERT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 1u);
    ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 0u);
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undo(), ZStatus::kNotFound);

    // A deleted node kept for undo does not block unloading, but must not
    // come back once its type is gone.
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    ASSERT_TRUE(run("createNode sampleNode -n doomed", true).status) << lastError();
    ASSERT_TRUE(run("delete doomed", true).status) << lastError();
    ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undo(), ZStatus::kNotFound);
    EXPECT_EQ(oz::Graph::instance().findNode("doomed"), nullptr);
}

TEST_F(PluginLifecycle, ReloadingImportsTheScriptsAfresh) {
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(run("loadPlugin Sample").status) << "round " << round << ": " << lastError();
        ZString initialised;
        ASSERT_TRUE(ZGlobal::executePythonCommand("__import__('zyvo.app.sample').app.sample.initialised",
                                                  initialised));
        EXPECT_EQ(initialised, "1") << "round " << round;
        ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    }
}

TEST_F(PluginLifecycle, LoadingAgainOrByPathKeepsOneInstance) {
    const std::string path = std::string(ZYVO_TEST_PLUGIN_DIR) + "/Sample";
    EXPECT_EQ(result("loadPlugin \"" + path + "\""), "Sample") << "the extension may be left out";
    EXPECT_EQ(result("loadPlugin Sample.so"), "Sample");
    EXPECT_EQ(oz::plugins::PluginRegistry::instance().names(), std::vector<std::string>{"Sample"});
    ZString initialised;
    ASSERT_TRUE(
        ZGlobal::executePythonCommand("__import__('zyvo.app.sample').app.sample.initialised", initialised));
    EXPECT_EQ(initialised, "1") << "initializePlugin ran once";
}

TEST_F(PluginLifecycle, PluginInfoDescribesALoadedPlugin) {
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    EXPECT_EQ(result("pluginInfo -q -ls"), "Sample");
    EXPECT_EQ(result("pluginInfo -q -l Sample"), "true");
    EXPECT_EQ(result("pluginInfo -q -vendor Sample"), "Sample Makers");
    EXPECT_EQ(result("pluginInfo -q -version Sample"), "1.5");
    EXPECT_EQ(result("pluginInfo -q -apiVersion Sample"), "2.0.0");
    EXPECT_EQ(result("pluginInfo -q -path Sample"), std::string(ZYVO_TEST_PLUGIN_DIR) + "/Sample.so");
    EXPECT_EQ(result("pluginInfo -q -dependNode Sample"), "sampleNode");
    EXPECT_EQ(result("pluginInfo -q -command Sample"), "sampleCommand sampleContext");
    EXPECT_FALSE(run("pluginInfo -q -vendor Nothing").status);
    EXPECT_FALSE(run("pluginInfo -ls").status) << "only queries";
}

TEST_F(PluginLifecycle, FunctionSetDiesWithThePlugin) {
    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    const ZObject object = pluginObject("Sample");

    ZStatus status;
    ZFnPlugin tooNew(object, "Other", "9", "9.0", &status);
    EXPECT_FALSE(status) << "requires a newer API than this host's";
    EXPECT_EQ(ZFnPlugin(object).vendor(), "Sample Makers") << "a refused function set records nothing";
    EXPECT_EQ(ZFnPlugin(object).loadPath(), ZYVO_TEST_PLUGIN_DIR);

    ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    ZFnPlugin stale(object, "Sample", "1", "Any", &status);
    EXPECT_FALSE(status);
    EXPECT_FALSE(stale.registerCommand("lateCommand", [] { return static_cast<void*>(nullptr); }));
    EXPECT_FALSE(hasCommand("lateCommand"));
}

struct MessageRecord {
    std::vector<std::string> seen;
};

// "<name> <library file>" for each message.
void record(const ZStringArray& strings, void* data) {
    auto& seen = static_cast<MessageRecord*>(data)->seen;
    ASSERT_EQ(strings.length(), 2u);
    seen.push_back(strings[1].asStdString() + " " +
                   std::filesystem::path(strings[0].asStdString()).filename().string());
}

TEST_F(PluginLifecycle, SceneMessagesAnnounceLoadAndUnload) {
    MessageRecord before, after;
    std::vector<ZCallbackId> ids;
    for (auto message : {ZSceneMessage::kBeforePluginLoad, ZSceneMessage::kBeforePluginUnload})
        ids.push_back(ZSceneMessage::addStringArrayCallback(message, record, &before));
    for (auto message : {ZSceneMessage::kAfterPluginLoad, ZSceneMessage::kAfterPluginUnload})
        ids.push_back(ZSceneMessage::addStringArrayCallback(message, record, &after));

    ASSERT_TRUE(run("loadPlugin Sample").status) << lastError();
    ASSERT_TRUE(run("unloadPlugin Sample").status) << lastError();
    EXPECT_FALSE(run("loadPlugin Failing").status);
    for (ZCallbackId id : ids)
        ZMessage::removeCallback(id);

    EXPECT_EQ(before.seen,
              (std::vector<std::string>{"Sample Sample.so", "Sample Sample.so", "Failing Failing.so"}));
    EXPECT_EQ(after.seen, (std::vector<std::string>{"Sample Sample.so", "Sample Sample.so"}))
        << "a plug-in that fails to load is never announced as loaded";
}

} // namespace
