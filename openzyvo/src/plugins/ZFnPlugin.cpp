#include "commands/CommandRegistry.h"
#include "commands/ContextCommands.h"
#include "commands/ProcedureRegistry.h"
#include "core/StatusOut.h"
#include "graph/NodeTypeRegistry.h"
#include "plugins/ApiVersion.h"
#include "plugins/Plugin.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZPxContextCommand.h>
#include <filesystem>

using oz::plugins::Plugin;

namespace {

Plugin* pluginOf(const ZObject& object, ZStatus* status = nullptr) {
    Plugin* plugin = oz::plugins::loadedPlugin(object);
    oz::setStatus(status, plugin ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return plugin;
}

ZString text(const ZObject& object, ZStatus* status, ZString (*field)(const Plugin&)) {
    const Plugin* plugin = pluginOf(object, status);
    return plugin ? field(*plugin) : ZString();
}

void reportRefusal(const Plugin& plugin, const ZString& why) {
    ZGlobal::displayError(ZString("Plug-in ") + plugin.name + ": " + why);
}

// Commands are removed only by the plug-in that registered them.
bool ownsCommand(const Plugin& plugin, const ZString& name) {
    const auto command = oz::cmd::CommandRegistry::instance().find(name.asStdString());
    return command && command->owner == plugin.name;
}

} // namespace

ZFnPlugin::ZFnPlugin(const ZObject& plugin, const char* vendor, const char* version,
                     const char* requiredApiVersion, ZStatus* status) {
    Plugin* target = pluginOf(plugin, status);
    if (!target)
        return;
    if (!oz::plugins::meetsRequiredApi(requiredApiVersion ? requiredApiVersion : "Any")) {
        reportRefusal(*target, ZString("needs API version ") + requiredApiVersion + ", this host provides " +
                                   oz::plugins::formatApiVersion(OPENZYVO_API_VERSION));
        oz::setStatus(status, ZStatus::kFailure);
        return;
    }
    const std::string unknown = "Unknown";
    if (vendor && vendor != unknown)
        target->vendor = vendor;
    if (version && version != unknown)
        target->version = version;
    m_object = plugin;
}

ZString ZFnPlugin::name(ZStatus* status) const {
    return text(m_object, status, [](const Plugin& plugin) { return ZString(plugin.name); });
}

ZString ZFnPlugin::vendor(ZStatus* status) const {
    return text(m_object, status, [](const Plugin& plugin) { return ZString(plugin.vendor); });
}

ZString ZFnPlugin::version(ZStatus* status) const {
    return text(m_object, status, [](const Plugin& plugin) { return ZString(plugin.version); });
}

ZString ZFnPlugin::apiVersion(ZStatus* status) const {
    return text(m_object, status, [](const Plugin& plugin) {
        return ZString(oz::plugins::formatApiVersion(plugin.apiVersion));
    });
}

ZString ZFnPlugin::loadPath(ZStatus* status) const {
    return text(m_object, status,
                [](const Plugin& plugin) { return ZString(plugin.library.parent_path().string()); });
}

ZStatus ZFnPlugin::registerNode(const ZString& typeName, const ZTypeId& typeId, ZCreatorFunction creator,
                                ZInitializeFunction initialize, ZPxNode::Type type,
                                const ZString* classification) {
    Plugin* plugin = pluginOf(m_object);
    if (!plugin || !creator)
        return ZStatus::kInvalidParameter;
    oz::NodeTypeInfo info;
    info.name = typeName;
    info.id = typeId;
    info.kind = type;
    info.creator = [creator] {
        return static_cast<ZPxNode*>(creator());
    };
    if (initialize)
        info.initializer = initialize;
    if (classification)
        info.classification = *classification;
    info.pluginName = plugin->name;
    ZString error;
    const ZStatus status = oz::NodeTypeRegistry::instance().registerType(std::move(info), &error);
    if (!status) {
        reportRefusal(*plugin, error);
        return status;
    }
    plugin->hadNodeTypes = true;
    return ZStatus::kSuccess;
}

ZStatus ZFnPlugin::deregisterNode(const ZTypeId& typeId) {
    Plugin* plugin = pluginOf(m_object);
    if (!plugin)
        return ZStatus::kInvalidParameter;
    const auto type = oz::NodeTypeRegistry::instance().find(typeId);
    if (!type || type->pluginName != plugin->name)
        return ZStatus::kNotFound;
    ZString error;
    const ZStatus status = oz::NodeTypeRegistry::instance().deregisterType(typeId, &error);
    if (!status)
        reportRefusal(*plugin, error);
    return status;
}

ZStatus ZFnPlugin::registerCommand(const ZString& commandName, ZCreatorFunction creator,
                                   ZCreateSyntaxFunction createSyntax) {
    Plugin* plugin = pluginOf(m_object);
    if (!plugin || !creator)
        return ZStatus::kInvalidParameter;
    oz::cmd::CommandInfo info;
    info.name = commandName.asStdString();
    info.create = [creator] {
        return std::unique_ptr<ZPxCommand>(static_cast<ZPxCommand*>(creator()));
    };
    if (createSyntax)
        info.makeSyntax = createSyntax;
    info.owner = plugin->name;
    const ZStatus status = oz::cmd::CommandRegistry::instance().add(std::move(info));
    if (!status)
        reportRefusal(*plugin, ZString("the command name \"") + commandName + "\" is invalid or taken");
    return status;
}

ZStatus ZFnPlugin::deregisterCommand(const ZString& commandName) {
    const Plugin* plugin = pluginOf(m_object);
    if (!plugin)
        return ZStatus::kInvalidParameter;
    if (!ownsCommand(*plugin, commandName))
        return ZStatus::kNotFound;
    return oz::cmd::CommandRegistry::instance().remove(commandName.asStdString());
}

ZStatus ZFnPlugin::registerContextCommand(const ZString& commandName, ZCreatorFunction creator) {
    Plugin* plugin = pluginOf(m_object);
    if (!plugin || !creator)
        return ZStatus::kInvalidParameter;
    const ZStatus status = oz::cmd::ContextCommands::instance().registerCommand(
        commandName.asStdString(),
        [creator] { return std::unique_ptr<ZPxContextCommand>(static_cast<ZPxContextCommand*>(creator())); },
        plugin->name);
    if (!status)
        reportRefusal(*plugin,
                      ZString("the context command name \"") + commandName + "\" is invalid or taken");
    return status;
}

ZStatus ZFnPlugin::deregisterContextCommand(const ZString& commandName) {
    const Plugin* plugin = pluginOf(m_object);
    if (!plugin)
        return ZStatus::kInvalidParameter;
    if (!ownsCommand(*plugin, commandName))
        return ZStatus::kNotFound;
    return oz::cmd::ContextCommands::instance().deregisterCommand(commandName.asStdString());
}

ZStatus ZFnPlugin::registerUIStrings(ZInitializeFunction registerStrings, const ZString& procedureName) {
    const Plugin* plugin = pluginOf(m_object);
    if (!plugin || !registerStrings)
        return ZStatus::kInvalidParameter;
    if (const ZStatus status = registerStrings(); !status)
        return status;
    oz::cmd::ProcedureRegistry::OwnerScope owner(plugin->name);
    return oz::cmd::ProcedureRegistry::instance().add(
        procedureName.asStdString(),
        [registerStrings](const std::vector<oz::cmd::Value>&, oz::cmd::Value&) { return registerStrings(); });
}

ZStatus ZFnPlugin::addScriptsPath(const ZString& folder) {
    const Plugin* plugin = pluginOf(m_object);
    if (!plugin || folder.isEmpty())
        return ZStatus::kInvalidParameter;
    std::filesystem::path path = folder.asStdString();
    if (path.is_relative())
        path = plugin->library.parent_path() / path;
    std::error_code error;
    if (!std::filesystem::is_directory(path, error))
        return ZStatus::kNotFound;
    oz::python::addScriptFolder(path.lexically_normal().string());
    return ZStatus::kSuccess;
}
