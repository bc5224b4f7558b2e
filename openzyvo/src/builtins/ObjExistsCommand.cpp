#include "builtins/ResultValue.h"
#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

// objExists <name>: whether a node or a plug ("node.attr[1]") of that name exists.
class ObjExistsCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 1);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        const std::string_view name = objects[0].view();
        ZPlug plug;
        std::string error;
        const bool exists = name.find('.') == std::string_view::npos ? findNode(name) != nullptr
                                                                     : findPlug(name, plug, error);
        setResultValue(exists);
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    "objExists", [] { return std::make_unique<ObjExistsCommand>(); }, ObjExistsCommand::newSyntax);

} // namespace
} // namespace oz::builtins
