#include "builtins/ModifierCommand.h"
#include "commands/BuiltinCommand.h"
#include "graph/Graph.h"
#include "graph/PlugRef.h"
#include "scene/CommandMessages.h"
#include "scene/SceneLookup.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "disconnectAttr";

// disconnectAttr <source> <destination>: breaks the connection; undo makes
// it again.
class DisconnectAttrCommand : public ModifierCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects, 2, 2);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        ZPlug source, destination;
        std::string error;
        if (!findPlug(objects[0].view(), source, error) || !findPlug(objects[1].view(), destination, error)) {
            reportError(kName, error);
            return ZStatus::kNotFound;
        }
        if (!Graph::instance().findConnection(*PlugAccess::get(source), *PlugAccess::get(destination))) {
            reportError(kName, quoted(objects[0].asStdString()) + " is not connected to " +
                                   quoted(objects[1].asStdString()));
            return ZStatus::kNotFound;
        }
        if (!(status = m_modifier.disconnect(source, destination)) || !(status = m_modifier.doIt()))
            reportError(kName, "the connection could not be broken");
        return status;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<DisconnectAttrCommand>(); }, DisconnectAttrCommand::newSyntax);

} // namespace
} // namespace oz::builtins
