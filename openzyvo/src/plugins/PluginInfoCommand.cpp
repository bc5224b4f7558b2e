#include "commands/BuiltinCommand.h"
#include "commands/CommandRegistry.h"
#include "commands/ParsedCommand.h"
#include "graph/NodeTypeRegistry.h"
#include "plugins/ApiVersion.h"
#include "plugins/PluginRegistry.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace {

using oz::plugins::Plugin;
using oz::plugins::PluginRegistry;

ZStringArray toArray(const std::vector<std::string>& names) {
    ZStringArray array;
    for (const std::string& name : names)
        array.append(ZString(name));
    return array;
}

ZStringArray commandsOf(const Plugin& plugin) {
    ZStringArray commands;
    for (const std::string& name : oz::cmd::CommandRegistry::instance().names())
        if (const auto command = oz::cmd::CommandRegistry::instance().find(name);
            command && command->owner == plugin.name)
            commands.append(ZString(name));
    return commands;
}

ZStringArray nodeTypesOf(const Plugin& plugin) {
    ZStringArray types;
    for (const auto& type : oz::NodeTypeRegistry::instance().types())
        if (type->pluginName == plugin.name)
            types.append(type->name);
    return types;
}

// pluginInfo -query -listPlugins
// pluginInfo -query -loaded | -path | -vendor | -version | -apiVersion | -command | -dependNode NAME
class PluginInfoCommand : public oz::cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.enableQuery();
        syntax.addFlag("-ls", "-listPlugins");
        syntax.addFlag("-l", "-loaded");
        syntax.addFlag("-p", "-path");
        syntax.addFlag("-vd", "-vendor");
        syntax.addFlag("-v", "-version");
        syntax.addFlag("-av", "-apiVersion");
        syntax.addFlag("-c", "-command");
        syntax.addFlag("-dn", "-dependNode");
        syntax.setObjectType(ZSyntax::kStringObjects, 0, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        if (!database.isQuery() || database.numberOfFlagsUsed() != 1) {
            displayError("pluginInfo: give -query and one of its flags");
            return ZStatus::kInvalidParameter;
        }
        if (database.isFlagSet("-listPlugins")) {
            setResult(toArray(PluginRegistry::instance().names()));
            return ZStatus::kSuccess;
        }
        if (objects.length() != 1) {
            displayError("pluginInfo: name the plug-in");
            return ZStatus::kInvalidParameter;
        }
        const ZString name = objects[0];
        const auto plugin = PluginRegistry::instance().find(name.asStdString());
        if (database.isFlagSet("-loaded")) {
            setResult(plugin != nullptr);
            return ZStatus::kSuccess;
        }
        if (!plugin) {
            displayError(ZString("pluginInfo: plug-in ") + name + " is not loaded");
            return ZStatus::kNotFound;
        }
        if (database.isFlagSet("-path"))
            setResult(ZString(plugin->library.string()));
        else if (database.isFlagSet("-vendor"))
            setResult(ZString(plugin->vendor));
        else if (database.isFlagSet("-version"))
            setResult(ZString(plugin->version));
        else if (database.isFlagSet("-apiVersion"))
            setResult(ZString(oz::plugins::formatApiVersion(plugin->apiVersion)));
        else if (database.isFlagSet("-command"))
            setResult(commandsOf(*plugin));
        else
            setResult(nodeTypesOf(*plugin));
        return ZStatus::kSuccess;
    }
};

const oz::cmd::BuiltinCommand registration(
    "pluginInfo", [] { return std::make_unique<PluginInfoCommand>(); }, PluginInfoCommand::newSyntax);

} // namespace
