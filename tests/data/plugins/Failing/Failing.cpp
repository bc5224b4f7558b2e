// A plug-in whose initialisation fails after it registered a node type, a
// command and a draw override; the host must remove all three.
#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvoRender/ZDrawRegistry.h>

ZYVO_DEFINE_API_VERSION;

namespace {

class FailingNode : public ZPxNode {
public:
    static void* creator() { return new FailingNode; }
};

class FailingCommand : public ZPxCommand {
public:
    static void* creator() { return new FailingCommand; }
};

ZHWRender::ZPxDrawOverride* noOverride(const ZObject&) {
    return nullptr;
}

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    ZFnPlugin plugin(object, "Failing Makers", "0.1");
    plugin.registerNode("failingNode", ZTypeId(0x7f0201), FailingNode::creator, nullptr);
    plugin.registerCommand("failingCommand", FailingCommand::creator);
    ZHWRender::ZDrawRegistry::registerDrawOverrideCreator("drawdb/geometry/failingNode", "failingOverride",
                                                          noOverride);
    return ZStatus::kInsufficientMemory;
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject) {
    return ZStatus::kSuccess;
}
