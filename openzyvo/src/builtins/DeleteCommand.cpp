#include "builtins/ModifierCommand.h"
#include "commands/BuiltinCommand.h"
#include "graph/Graph.h"
#include "scene/CommandMessages.h"
#include "scene/DefaultNodes.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "delete";

bool hasAncestorIn(const Node& node, const std::vector<Node*>& nodes) {
    for (const Node* above = node.dagParent; above; above = above->dagParent)
        if (std::find(nodes.begin(), nodes.end(), above) != nodes.end())
            return true;
    return false;
}

// delete [names or patterns...]: deletes the nodes (the selection when none
// are named) with their DAG children and connections. Undo brings them
// back with their connections.
class DeleteCommand : public ModifierCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        std::vector<Node*> doomed;
        if (objects.length() == 0) {
            doomed = selectedNodes();
        } else {
            std::vector<std::string> names;
            for (unsigned int i = 0; i < objects.length(); ++i)
                names.push_back(objects[i].asStdString());
            if (!resolveNodes(kName, names, doomed))
                return ZStatus::kNotFound;
        }
        if (doomed.empty()) {
            reportError(kName, "nothing to delete: name the nodes or select them");
            return ZStatus::kInvalidParameter;
        }
        for (Node* node : doomed) {
            if (isDefaultNode(*node)) {
                reportError(kName,
                            quoted(node->name.asStdString()) + " is a default node and cannot be deleted");
                return ZStatus::kInvalidParameter;
            }
        }
        // Children go with their parents; naming them too must not delete them twice.
        for (Node* node : doomed)
            if (!hasAncestorIn(*node, doomed))
                m_modifier.deleteNode(wrapNode(*node));
        status = m_modifier.doIt();
        if (!status)
            reportError(kName, "the nodes could not be deleted");
        return status;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<DeleteCommand>(); }, DeleteCommand::newSyntax);

} // namespace
} // namespace oz::builtins
