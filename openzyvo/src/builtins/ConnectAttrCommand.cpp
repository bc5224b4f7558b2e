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

constexpr const char* kName = "connectAttr";

std::string plugText(const Connection& connection) {
    return connection.srcNode->name.asStdString() + "." + pathName(connection.src, true, false).asStdString();
}

// connectAttr [-f] <source> <destination>: a destination that has another
// source already is refused, unless -force breaks that connection first.
// Undo breaks the new connection and restores the old.
class ConnectAttrCommand : public ModifierCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-f", "-force");
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
        const PlugRef& src = *PlugAccess::get(source);
        const PlugRef& dst = *PlugAccess::get(destination);
        Graph& graph = Graph::instance();
        if (graph.findConnection(src, dst)) {
            reportWarning(kName, quoted(objects[0].asStdString()) + " is already connected to " +
                                     quoted(objects[1].asStdString()));
            return ZStatus::kSuccess;
        }
        ZString reason;
        if (!graph.canConnect(src, dst, &reason, false)) {
            reportError(kName, reason.asStdString());
            return ZStatus::kInvalidParameter;
        }
        for (const auto& connection : dst.node->incoming) {
            if (!related(connection->dst, dst.path))
                continue;
            if (!database.isFlagSet("-force")) {
                reportError(kName, quoted(objects[1].asStdString()) +
                                       " already has an incoming connection from " +
                                       quoted(plugText(*connection)) + "; use -force to replace it");
                return ZStatus::kInvalidParameter;
            }
            m_modifier.disconnect(PlugAccess::make(PlugRef{PlugAccess::sharedNode(*connection->srcNode),
                                                           connection->srcRoot, connection->src}),
                                  PlugAccess::make(PlugRef{dst.node, connection->dstRoot, connection->dst}));
        }
        if (!(status = m_modifier.connect(source, destination)) || !(status = m_modifier.doIt())) {
            reportError(kName, "the connection could not be made");
            return status;
        }
        m_undoable = true;
        return ZStatus::kSuccess;
    }

    bool isUndoable() const override { return m_undoable; }

private:
    bool m_undoable = false;
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<ConnectAttrCommand>(); }, ConnectAttrCommand::newSyntax);

} // namespace
} // namespace oz::builtins
