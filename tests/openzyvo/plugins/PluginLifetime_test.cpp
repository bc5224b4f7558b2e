#include "PluginTest.h"
#include "graph/NodeTypeRegistry.h"
#include "plugins/RuntimeShutdown.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZMessage.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSceneMessage.h>
#include <dlfcn.h>
#include <string>
#include <utility>

namespace {

// output = input; its compute then runs, once, the script a test gave it.
class ScriptingNode : public ZPxNode {
public:
    static ZObject input, output;
    static std::string script;
    static ZStatus scriptStatus;

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != output)
            return ZStatus::kUnknownParameter;
        block.outputValue(output).set(block.inputValue(input).asDouble());
        block.setClean(plug);
        if (!script.empty())
            scriptStatus = ZGlobal::executeCommand(ZString(std::exchange(script, std::string())));
        return ZStatus::kSuccess;
    }

    static void registerType() {
        if (oz::NodeTypeRegistry::instance().find("scriptingNode"))
            return;
        oz::NodeTypeInfo info;
        info.name = "scriptingNode";
        info.id = ZTypeId(0x7e0fe);
        info.creator = [] {
            return static_cast<ZPxNode*>(new ScriptingNode);
        };
        info.initializer = [] {
            ZFnNumericAttribute fn;
            input = fn.create("input", "in", ZFnNumericData::kDouble, 0.0);
            output = fn.create("output", "out", ZFnNumericData::kDouble, 0.0);
            fn.setWritable(false);
            fn.setStorable(false);
            addAttribute(input);
            addAttribute(output);
            return attributeAffects(input, output);
        };
        ZString error;
        ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
    }
};

ZObject ScriptingNode::input, ScriptingNode::output;
std::string ScriptingNode::script;
ZStatus ScriptingNode::scriptStatus;

class PluginLifetime : public PluginTest {
protected:
    void TearDown() override {
        for (const auto& node : std::vector(oz::Graph::instance().nodes()))
            if (node->type->name == "scriptingNode")
                oz::Graph::instance().deleteNode(*node);
        PluginTest::TearDown();
    }

    static std::string lastWarning() {
        const auto warnings = log().texts(oz::cmd::MessageLog::Kind::Warning);
        return warnings.empty() ? std::string() : warnings.back();
    }
};

TEST_F(PluginLifetime, ShutdownEndsPluginNodesAndUndoRecordsBeforeUnloading) {
    ASSERT_EQ(result("loadPlugin Sample"), "Sample");
    ASSERT_TRUE(run("createNode sampleNode -n kept; createNode sampleNode -n doomed", true).status);
    ASSERT_TRUE(run("delete doomed", true).status);
    ZObject kept;
    ASSERT_TRUE(oz::Graph::instance().findNode("kept"));
    kept = oz::wrapNode(*oz::Graph::instance().findNode("kept"));

    EXPECT_TRUE(oz::plugins::shutdownRuntime()) << lastError();
    EXPECT_TRUE(oz::plugins::PluginRegistry::instance().names().empty());
    EXPECT_FALSE(oz::NodeTypeRegistry::instance().find("sampleNode"));
    EXPECT_EQ(oz::cmd::UndoQueue::instance().undoSteps(), 0u);
    EXPECT_TRUE(oz::Graph::instance().nodes().empty());
    EXPECT_FALSE(kept.hasFn(ZFn::kDependencyNode))
        << "a node held elsewhere is ended, not left to the library";
}

TEST_F(PluginLifetime, UnloadRemovesCallbacksLeftInPluginCode) {
    ASSERT_EQ(result("loadPlugin Sample"), "Sample");
    // A function of the plug-in's library installed as a callback, as a
    // plug-in that forgets to remove one would leave it.
    void* library = dlopen(oz::plugins::PluginRegistry::instance().find("Sample")->library.c_str(),
                           RTLD_NOW | RTLD_NOLOAD);
    ASSERT_TRUE(library);
    void* code = dlsym(library, "uninitializePlugin");
    dlclose(library);
    ASSERT_TRUE(code);
    ZStatus status;
    const ZCallbackId id = ZSceneMessage::addCallback(
        ZSceneMessage::kAfterSave, reinterpret_cast<ZSceneMessage::Function>(code), nullptr, &status);
    ASSERT_TRUE(status);

    EXPECT_EQ(result("unloadPlugin Sample"), "Sample");
    EXPECT_EQ(lastWarning(), "Plug-in Sample left 1 callback(s) installed; they were removed with it");
    EXPECT_FALSE(ZMessage::removeCallback(id)) << "the callback went with the library";
}

TEST_F(PluginLifetime, UnloadFromAComputeIsRefused) {
    ScriptingNode::registerType();
    ASSERT_EQ(result("loadPlugin Sample"), "Sample");
    ASSERT_TRUE(run("createNode scriptingNode -n s; setAttr s.input 3").status) << lastError();
    ScriptingNode::script = "unloadPlugin Sample";
    EXPECT_EQ(result("getAttr s.output"), "3");
    EXPECT_FALSE(ScriptingNode::scriptStatus);
    EXPECT_EQ(lastError(), "Cannot unload plug-in Sample while 's' is being computed; run it after the "
                           "evaluation with evalDeferred");
    EXPECT_TRUE(oz::plugins::PluginRegistry::instance().find("Sample"));
}

} // namespace
