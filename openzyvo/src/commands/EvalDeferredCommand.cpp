#include "commands/BuiltinCommand.h"
#include "commands/CallerLanguage.h"
#include "commands/ParsedCommand.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZGlobal.h>

namespace {

// evalDeferred [-python] "script": runs the script once the current top-level
// command has finished, as Python with -python or when called from Python,
// else in the command language.
class EvalDeferredCommand : public oz::cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-py", "-python");
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZString script;
        database.getCommandArgument(0, script);
        if (database.isFlagSet("-python") || oz::cmd::callerLanguage() == oz::cmd::Language::Python)
            return ZGlobal::executePythonCommandOnIdle(script);
        return ZGlobal::executeCommandOnIdle(script);
    }
};

const oz::cmd::BuiltinCommand registration(
    "evalDeferred", [] { return std::make_unique<EvalDeferredCommand>(); }, EvalDeferredCommand::newSyntax);

} // namespace
