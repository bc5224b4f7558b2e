#include "commands/BuiltinCommand.h"
#include "commands/ParsedCommand.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZArgDatabase.h>

namespace {

// python "code": runs Python code; an expression gives its value, as text,
// as the result.
class PythonCommand : public oz::cmd::ParsedCommand {
public:
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addArg(ZSyntax::kString);
        return syntax;
    }

    ZStatus run(const ZArgDatabase& database, const ZStringArray& objects) override {
        ZStatus status;
        ZString code;
        database.getCommandArgument(0, code);
        const oz::python::RunOutcome outcome = oz::python::run(code.asStdString());
        if (outcome.hasResult)
            setResult(ZString(outcome.result));
        return outcome.status;
    }
};

const oz::cmd::BuiltinCommand registration(
    "python", [] { return std::make_unique<PythonCommand>(); }, PythonCommand::newSyntax);

} // namespace
