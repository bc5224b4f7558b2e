#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Graph.h"
#include "graph/Names.h"
#include "graph/NodeTypeRegistry.h"
#include "graph/PlugRef.h"
#include "nodes/ActiveSelection.h"
#include "nodes/DagHierarchy.h"
#include "scene/CommandMessages.h"
#include "scene/DefaultNodes.h"
#include "scene/ReadContext.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZSelectionList.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "createNode";

// createNode <type> [-n name] [-p parent] [-ss]: makes a node and returns
// its name. A shape made without a parent gets a new transform above it,
// as shapes live under transforms. Undo deletes the node again.
class CreateNodeCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-n", "-name", ZSyntax::kString);
        syntax.addFlag("-p", "-parent", ZSyntax::kString);
        syntax.addFlag("-ss", "-skipSelect");
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZString typeName, name, parentName;
        database.getCommandArgument(0, typeName);
        database.getFlagArgument("-name", 0, name);
        database.getFlagArgument("-parent", 0, parentName);
        ReadContext* reading = ReadContext::active();

        const ZStatus made = create(typeName.asStdString(), name, parentName, reading != nullptr);
        if (!made && reading && !name.isEmpty())
            reading->skipNode(name.asStdString());
        if (!made)
            return made;
        if (!reading && !database.isFlagSet("-skipSelect")) {
            ZSelectionList selection;
            selection.add(wrapNode(*m_made));
            nodes::setActiveSelection(selection);
        }
        setResultValue(m_made->name.asStdString());
        return ZStatus::kSuccess;
    }

    // Undo deletes what doIt made; redo puts it back as it was.
    ZStatus undoIt() override { return m_removal.doIt(); }
    ZStatus redoIt() override { return m_removal.undoIt(); }
    bool isUndoable() const override { return m_undoable; }

private:
    ZStatus create(const std::string& typeName, const ZString& name, const ZString& parentName,
                   bool reading) {
        const auto type = NodeTypeRegistry::instance().find(ZString(typeName));
        if (!type) {
            reportError(kName, "Unknown node type: " + typeName);
            return ZStatus::kNotFound;
        }
        if (type->abstract || !type->creator) {
            reportError(kName, "'" + typeName + "' is an abstract node type; no node of it can be made");
            return ZStatus::kInvalidParameter;
        }
        if (!name.isEmpty() && !isValidName(name)) {
            reportError(kName,
                        quoted(name.asStdString()) +
                            " is not a valid node name (a letter or '_', then letters, digits and '_')");
            return ZStatus::kInvalidParameter;
        }
        if (reading && isDefaultNodeName(name.view())) {
            // Every scene has its default nodes already: a file naming one
            // means that node.
            Node* existing = findNode(name.view());
            if (existing && existing->type == type) {
                m_made = existing;
                return ZStatus::kSuccess;
            }
        }
        Node* parent = nullptr;
        if (!parentName.isEmpty()) {
            parent = findNode(parentName.view());
            if (!parent) {
                reportError(kName, noObjectMatches(parentName.asStdString()));
                return ZStatus::kNotFound;
            }
            if (!type->dag) {
                reportError(kName, "-parent applies to DAG nodes; '" + typeName + "' is not a DAG node type");
                return ZStatus::kInvalidParameter;
            }
            if (!nodes::isTransform(*parent)) {
                reportError(kName, quoted(parent->name.asStdString()) +
                                       " is not a transform and cannot be a parent");
                return ZStatus::kInvalidParameter;
            }
        }

        std::vector<std::shared_ptr<Node>> made;
        if (!parent && type->dag && type->kind != ZPxNode::kTransformNode) {
            const auto transform = NodeTypeRegistry::instance().find("transform");
            std::shared_ptr<Node> above;
            if (!transform || !construct(transform, ZString(), nullptr, reading, above))
                return fail(made);
            made.push_back(above);
            parent = above.get();
        }
        std::shared_ptr<Node> node;
        if (!construct(type, name, parent, reading, node))
            return fail(made);
        made.push_back(node);
        m_made = node.get();
        if (!reading) {
            m_removal.deleteNode(wrapNode(*made.front()));
            m_undoable = true;
        }
        return ZStatus::kSuccess;
    }

    // Makes a node under `parent`; its postConstructor runs at once, or,
    // while a file is read, once its stored values are in.
    static bool construct(const std::shared_ptr<NodeType>& type, const ZString& name, Node* parent,
                          bool reading, std::shared_ptr<Node>& node) {
        Graph& graph = Graph::instance();
        if (!graph.instantiate(type, node) || !graph.attach(*node, name)) {
            reportError(kName, "a node of type '" + type->name.asStdString() + "' could not be made");
            if (node)
                graph.finalise(*node);
            return false;
        }
        if (parent && !nodes::reparent(*node, parent)) {
            reportError(kName, quoted(node->name.asStdString()) + " could not be placed under " +
                                   quoted(parent->name.asStdString()));
            graph.deleteNode(*node);
            return false;
        }
        if (reading)
            ReadContext::active()->deferConstruction(node);
        else
            node->user->postConstructor();
        return true;
    }

    static ZStatus fail(const std::vector<std::shared_ptr<Node>>& made) {
        for (const auto& node : made)
            Graph::instance().deleteNode(*node);
        return ZStatus::kFailure;
    }

    Node* m_made = nullptr;
    ZDGModifier m_removal;
    bool m_undoable = false;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<CreateNodeCommand>(); }, CreateNodeCommand::newSyntax);

} // namespace
} // namespace oz::builtins
