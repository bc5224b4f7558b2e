#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "scene/CommandMessages.h"
#include "scene/PluginQuery.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz::builtins {

using namespace scene;
namespace {

constexpr const char* kName = "requires";

// requires <plug-in> [version]: loads a plug-in a scene needs unless it is
// loaded already. A plug-in that cannot be loaded is a warning, not an
// error: the scene still loads, and each node of the plug-in's types is
// reported as it comes.
class RequiresCommand : public cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.setObjectType(ZSyntax::kStringObjects, 1, 2);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        const std::string name = objects[0].asStdString();
        const std::string version =
            objects.length() > 1 ? " (version " + objects[1].asStdString() + ")" : std::string();
        if (pluginLoaded(name))
            return ZStatus::kSuccess;
        if (!canLoadPlugins())
            reportWarning(kName, "the plug-in \"" + name + "\"" + version +
                                     " is needed, but plug-ins cannot be "
                                     "loaded here; its nodes cannot be made");
        else if (!loadPlugin(name))
            reportWarning(kName, "the plug-in \"" + name + "\"" + version +
                                     " could not be loaded; its nodes cannot be made");
        return ZStatus::kSuccess;
    }
};

const cmd::BuiltinCommand registration(
    kName, [] { return std::make_unique<RequiresCommand>(); }, RequiresCommand::newSyntax);

} // namespace
} // namespace oz::builtins
