// Built against a newer minor version of the API than the host provides.
#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZPxCommand.h>

ZYVO_PLUGIN_EXPORT const int ZApiVersion = OPENZYVO_API_VERSION + 100;

namespace {

class FutureCommand : public ZPxCommand {
public:
    static void* creator() { return new FutureCommand; }
};

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    return ZFnPlugin(object).registerCommand("futureCommand", FutureCommand::creator);
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject) {
    return ZStatus::kSuccess;
}
