// Has the entry points but no ZApiVersion marker: not a plug-in of this host,
// so its initializePlugin must never run.
#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZPxCommand.h>

namespace {

class UnversionedCommand : public ZPxCommand {
public:
    static void* creator() { return new UnversionedCommand; }
};

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    return ZFnPlugin(object).registerCommand("unversionedCommand", UnversionedCommand::creator);
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject) {
    return ZStatus::kSuccess;
}
