#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "plugins/PluginRegistry.h"

#include <OpenZyvo/ZArgDatabase.h>

namespace {

// unloadPlugin NAME: unloads a plug-in whose node types have no nodes in the
// scene, and returns its name.
class UnloadPluginCommand : public oz::cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        ZString name;
        database.getCommandArgument(0, name);
        status = oz::plugins::PluginRegistry::instance().unload(name.asStdString());
        if (status)
            setResult(name);
        return status;
    }
};

const oz::cmd::BuiltinCommand registration(
    "unloadPlugin", [] { return std::make_unique<UnloadPluginCommand>(); }, UnloadPluginCommand::newSyntax);

} // namespace
