#include "builtins/NamedNodes.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "graph/Node.h"
#include "nodes/DagHierarchy.h"
#include "scene/CommandMessages.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "listRelatives";

// Every node below `node`, children before their parents, the last child's
// family first: the order in which deleting them one by one never deletes a
// node before what is below it.
void addDescendants(Node& node, std::vector<Node*>& out) {
    for (auto child = node.dagChildren.rbegin(); child != node.dagChildren.rend(); ++child) {
        addDescendants(**child, out);
        out.push_back(*child);
    }
}

// listRelatives [-c] [-p] [-ad] [-ap] [-s] [-type t]... [-f] [nodes...]: the
// DAG relatives of the nodes named (the selected ones when none are): their
// children, or their parents with -parent, everything below them with
// -allDescendents (deepest first), everything above them with -allParents
// (nearest first). -shapes keeps shapes, -type keeps nodes of a type or of
// a type derived from it; -fullPath gives DAG paths. Each relative is listed
// once; nodes outside the DAG have none.
class ListRelativesCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-c", "-children");
        syntax.addFlag("-p", "-parent");
        syntax.addFlag("-ad", "-allDescendents");
        syntax.addFlag("-ap", "-allParents");
        syntax.addFlag("-s", "-shapes");
        syntax.addFlag("-typ", "-type", ZSyntax::kString);
        syntax.makeFlagMultiUse("-type");
        syntax.addFlag("-f", "-fullPath");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        std::vector<Node*> nodes;
        if (!namedOrSelectedNodes(kName, objects, nodes))
            return ZStatus::kNotFound;
        std::vector<ZString> types;
        for (unsigned int use = 0; use < database.numberOfFlagUses("-type"); ++use) {
            ZArgList typeArgs;
            database.getFlagArgumentList("-type", use, typeArgs);
            types.push_back(typeArgs.asString(0));
        }
        const int directions = database.isFlagSet("-children") + database.isFlagSet("-parent") +
                               database.isFlagSet("-allDescendents") + database.isFlagSet("-allParents");
        if (directions > 1) {
            reportError(kName, "give one of -children, -parent, -allDescendents and -allParents");
            return ZStatus::kInvalidParameter;
        }
        const bool shapesOnly = database.isFlagSet("-shapes");
        auto wanted = [&](const Node& node) {
            if (shapesOnly && !nodes::isShape(node))
                return false;
            return types.empty() || std::any_of(types.begin(), types.end(),
                                                [&](const ZString& type) { return node.type->isA(type); });
        };

        std::vector<Node*> relatives;
        auto add = [&](Node* relative) {
            if (wanted(*relative) &&
                std::find(relatives.begin(), relatives.end(), relative) == relatives.end())
                relatives.push_back(relative);
        };
        for (Node* node : nodes) {
            std::vector<Node*> found;
            if (database.isFlagSet("-parent")) {
                if (node->dagParent)
                    found.push_back(node->dagParent);
            } else if (database.isFlagSet("-allParents")) {
                for (Node* above = node->dagParent; above; above = above->dagParent)
                    found.push_back(above);
            } else if (database.isFlagSet("-allDescendents")) {
                addDescendants(*node, found);
            } else {
                found = node->dagChildren;
            }
            std::for_each(found.begin(), found.end(), add);
        }

        const bool fullPath = database.isFlagSet("-fullPath");
        std::vector<std::string> names;
        for (Node* relative : relatives)
            names.push_back(fullPath ? nodes::fullPathName(*relative).asStdString()
                                     : relative->name.asStdString());
        setResultValue(std::move(names));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<ListRelativesCommand>(); }, ListRelativesCommand::newSyntax);

} // namespace
} // namespace oz::builtins
