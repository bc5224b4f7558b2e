#include "plugins/PluginResources.h"

#include "commands/CommandRegistry.h"
#include "commands/ContextCommands.h"
#include "commands/ProcedureRegistry.h"
#include "commands/UndoQueue.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"
#include "plugins/DrawOverrideTable.h"
#include "plugins/Plugin.h"

#include <algorithm>

namespace oz::plugins {

std::vector<std::string> liveNodesOf(const std::string& plugin) {
    std::vector<std::string> names;
    for (const auto& node : Graph::instance().nodes())
        if (node->state == Node::State::Live && node->type->pluginName == plugin)
            names.push_back(node->name.asStdString());
    return names;
}

std::vector<std::string> removeOwnedBy(const Plugin& plugin) {
    const std::string& owner = plugin.name;
    for (const std::string& command : cmd::CommandRegistry::instance().removeOwnedBy(owner))
        cmd::ContextCommands::instance().removeContextsOf(command);
    cmd::ProcedureRegistry::instance().removeOwnedBy(owner);
    cmd::UndoQueue::instance().forgetOwnedBy(owner);
    DrawOverrideTable::instance().removeOwnedBy(owner);
    if (plugin.hadNodeTypes)
        cmd::UndoQueue::instance().clear();

    std::vector<std::shared_ptr<NodeType>> types = NodeTypeRegistry::instance().types();
    std::erase_if(types, [&](const auto& type) { return type->pluginName != owner; });
    // Latest first: a type may build on an earlier one of the same plug-in.
    std::vector<std::string> kept;
    for (auto type = types.rbegin(); type != types.rend(); ++type)
        if (!NodeTypeRegistry::instance().deregisterType((*type)->id))
            kept.push_back((*type)->name.asStdString());
    return kept;
}

} // namespace oz::plugins
