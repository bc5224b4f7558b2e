#include "scene/PluginQuery.h"

#include "commands/CommandRegistry.h"
#include "commands/Executor.h"
#include "graph/NodeTypeRegistry.h"

namespace oz::scene {

namespace {

bool run(const std::string& command, std::vector<cmd::ArgItem> args, cmd::Value& result) {
    if (!cmd::CommandRegistry::instance().find(command))
        return false;
    return static_cast<bool>(cmd::Executor::invoke(command, args, result));
}

bool providesNodeTypes(const std::string& name) {
    for (const auto& type : NodeTypeRegistry::instance().types())
        if (type->pluginName.asStdString() == name)
            return true;
    return false;
}

bool registeredAsLoaded(const std::string& name) {
    cmd::Value result;
    if (run("pluginInfo", {cmd::ArgItem::flag("query"), cmd::ArgItem::flag("loaded"), {name}}, result))
        return cmd::toBool(result).value_or(false);
    return false;
}

} // namespace

bool pluginLoaded(const std::string& name) {
    return registeredAsLoaded(name) || providesNodeTypes(name);
}

std::string pluginVersion(const std::string& name) {
    cmd::Value result;
    if (registeredAsLoaded(name) &&
        run("pluginInfo", {cmd::ArgItem::flag("query"), cmd::ArgItem::flag("version"), {name}}, result))
        if (const auto* version = std::get_if<std::string>(&result); version && !version->empty())
            return *version;
    return "unknown";
}

bool loadPlugin(const std::string& name) {
    cmd::Value result;
    return run("loadPlugin", {{name}}, result);
}

bool canLoadPlugins() {
    return cmd::CommandRegistry::instance().find("loadPlugin").has_value();
}

} // namespace oz::scene
