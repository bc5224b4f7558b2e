#include "commands/Interpreter.h"

#include "commands/CallerLanguage.h"
#include "commands/ExecutionScope.h"
#include "commands/Executor.h"
#include "commands/MessageLog.h"
#include "commands/Parser.h"
#include "core/Overloaded.h"

#include <optional>

namespace oz::cmd {

namespace {

// Where the statements of a script stand, for their messages. A script
// read from a file names the file and the place in it in every error and
// warning its statements report, whoever reports them. Script text of no
// file (a host's command, an `eval`) names the place in the text in the
// errors of the language itself; what else its commands report stays as
// they word it, or takes the place of the statement of a file that runs it.
struct ScriptSource {
    std::string file; // "script.zys: ", or empty

    std::optional<MessageOrigin> origin(SourcePosition position) const {
        if (file.empty())
            return std::nullopt;
        return std::optional<MessageOrigin>(std::in_place, file + located(position, ""));
    }
    std::string where(SourcePosition position) const {
        return file.empty() ? located(position, "") : std::string();
    }
};

ZStatus evaluate(const Invocation& invocation, const ScriptSource& source, Value& result) {
    std::vector<ArgItem> args;
    args.reserve(invocation.arguments.size());
    for (const Argument& argument : invocation.arguments) {
        ZStatus status;
        std::visit(Overloaded{
                       [&](const Value& value) { args.push_back({value}); },
                       [&](const FlagArgument& flag) { args.push_back(ArgItem::flag(flag.name)); },
                       [&](const std::shared_ptr<const Invocation>& nested) {
                           Value nestedResult;
                           status = evaluate(*nested, source, nestedResult);
                           args.push_back({std::move(nestedResult)});
                       },
                   },
                   argument.node);
        if (!status)
            return status;
    }
    const CallerLanguageScope fromCommandLanguage(Language::Command);
    const auto origin = source.origin(invocation.position);
    return Executor::invoke(invocation.name, args, result, source.where(invocation.position));
}

} // namespace

ScriptOutcome runScript(std::string_view source, const ScriptOptions& options, std::string_view file) {
    MessageLog& log = MessageLog::instance();
    if (options.echo)
        log.add(MessageLog::Kind::Echo, std::string(source));

    const ScriptSource script{file.empty() ? std::string() : std::string(file) + ": "};
    ScriptOutcome outcome;
    const ParseResult parsed = parse(source);
    if (parsed.error) {
        const auto origin = script.origin(parsed.error->position);
        Executor::reportError(script.where(parsed.error->position) + parsed.error->message);
        outcome.status = ZStatus::kFailure;
        return outcome;
    }
    for (const Invocation& statement : parsed.script.statements) {
        ExecutionScope scope(options.undoable);
        outcome.status = evaluate(statement, script, outcome.result);
        if (!outcome.status)
            return outcome;
    }
    if (options.echo && !isEmpty(outcome.result))
        log.add(MessageLog::Kind::Result, toText(outcome.result));
    return outcome;
}

} // namespace oz::cmd
