#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "core/Wildcard.h"
#include "graph/Graph.h"
#include "nodes/DagHierarchy.h"
#include "scene/DefaultNodes.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

namespace oz::builtins {

using namespace scene;
namespace {

// ls [-type t]... [-sl] [-l] [names or patterns...]: the names of the nodes
// that match (every node without patterns, the selection with -sl), in
// scene order; -type keeps nodes of the given types, -long gives DAG nodes
// their full path. Patterns that match nothing add nothing.
class LsCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-typ", "-type", ZSyntax::kString);
        syntax.makeFlagMultiUse("-type");
        syntax.addFlag("-sl", "-selection");
        syntax.addFlag("-l", "-long");
        syntax.setObjectType(ZSyntax::kStringObjects);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ensureDefaultNodes();
        std::vector<std::string> types;
        for (unsigned int use = 0; use < database.numberOfFlagUses("-type"); ++use) {
            ZArgList typeArgs;
            database.getFlagArgumentList("-type", use, typeArgs);
            types.push_back(typeArgs.asString(0).asStdString());
        }

        std::vector<Node*> candidates;
        if (database.isFlagSet("-selection")) {
            candidates = selectedNodes();
        } else {
            for (const auto& node : Graph::instance().nodes())
                candidates.push_back(node.get());
        }
        std::vector<Node*> found;
        auto keep = [&](Node* node) {
            if (!types.empty() &&
                std::find(types.begin(), types.end(), node->type->name.asStdString()) == types.end())
                return;
            if (std::find(found.begin(), found.end(), node) == found.end())
                found.push_back(node);
        };
        if (objects.length() == 0) {
            for (Node* node : candidates)
                keep(node);
        }
        for (unsigned int i = 0; i < objects.length(); ++i) {
            const std::string_view pattern = objects[i].view();
            for (Node* node : candidates)
                if (matchesWildcard(pattern, pattern.front() == '|' ? nodes::fullPathName(*node).view()
                                                                    : node->name.view()))
                    keep(node);
        }
        const bool full = database.isFlagSet("-long");
        std::vector<std::string> names;
        for (Node* node : found)
            names.push_back(full && nodes::isDagNode(*node) ? nodes::fullPathName(*node).asStdString()
                                                            : node->name.asStdString());
        setResultValue(std::move(names));
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    "ls", [] { return std::make_unique<LsCommand>(); }, LsCommand::newSyntax);

} // namespace
} // namespace oz::builtins
