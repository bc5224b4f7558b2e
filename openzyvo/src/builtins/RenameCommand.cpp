#include "builtins/ModifierCommand.h"
#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "graph/Graph.h"
#include "graph/Names.h"
#include "scene/CommandMessages.h"
#include "scene/DefaultNodes.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "rename";

// rename <node> <newName>: returns the name the node got, made unique with
// a number when another node has it.
class RenameCommand : public ModifierCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects, 2, 2);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        Node* node = findNode(objects[0].view());
        if (!node) {
            reportError(kName, noObjectMatches(objects[0].asStdString()));
            return ZStatus::kNotFound;
        }
        if (isDefaultNode(*node)) {
            reportError(kName, quoted(node->name.asStdString()) + " is a default node and cannot be renamed");
            return ZStatus::kInvalidParameter;
        }
        if (!isValidName(objects[1])) {
            reportError(kName,
                        quoted(objects[1].asStdString()) +
                            " is not a valid node name (a letter or '_', then letters, digits and '_')");
            return ZStatus::kInvalidParameter;
        }
        m_modifier.renameNode(wrapNode(*node), objects[1]);
        if (!(status = m_modifier.doIt()))
            return status;
        setResultValue(node->name.asStdString());
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<RenameCommand>(); }, RenameCommand::newSyntax);

} // namespace
} // namespace oz::builtins
