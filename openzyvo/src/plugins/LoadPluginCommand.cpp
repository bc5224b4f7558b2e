#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "plugins/PluginRegistry.h"

#include <OpenZyvo/ZArgDatabase.h>

namespace {

// loadPlugin NAME|PATH: loads a plug-in, found by name in the plug-in path
// or by the path of its library, and returns its name.
class LoadPluginCommand : public oz::cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        ZString nameOrPath;
        database.getCommandArgument(0, nameOrPath);
        std::string name;
        status = oz::plugins::PluginRegistry::instance().load(nameOrPath.asStdString(), name);
        if (status)
            setResult(ZString(name));
        return status;
    }
};

const oz::cmd::BuiltinCommand registration(
    "loadPlugin", [] { return std::make_unique<LoadPluginCommand>(); }, LoadPluginCommand::newSyntax);

} // namespace
