#include "commands/Interpreter.h"

#include "commands/CallerLanguage.h"
#include "commands/ExecutionScope.h"
#include "commands/Executor.h"
#include "commands/MessageLog.h"
#include "commands/Parser.h"
#include "core/Overloaded.h"

namespace oz::cmd {

namespace {

ZStatus evaluate(const Invocation& invocation, Value& result) {
    std::vector<ArgItem> args;
    args.reserve(invocation.arguments.size());
    for (const Argument& argument : invocation.arguments) {
        ZStatus status;
        std::visit(Overloaded{
                       [&](const Value& value) { args.push_back({value}); },
                       [&](const FlagArgument& flag) { args.push_back(ArgItem::flag(flag.name)); },
                       [&](const std::shared_ptr<const Invocation>& nested) {
                           Value nestedResult;
                           status = evaluate(*nested, nestedResult);
                           args.push_back({std::move(nestedResult)});
                       },
                   },
                   argument.node);
        if (!status)
            return status;
    }
    const CallerLanguageScope fromCommandLanguage(Language::Command);
    return Executor::invoke(invocation.name, args, result, located(invocation.position, ""));
}

} // namespace

ScriptOutcome runScript(std::string_view source, const ScriptOptions& options) {
    MessageLog& log = MessageLog::instance();
    if (options.echo)
        log.add(MessageLog::Kind::Echo, std::string(source));

    ScriptOutcome outcome;
    const ParseResult parsed = parse(source);
    if (parsed.error) {
        Executor::reportError(parsed.error->text());
        outcome.status = ZStatus::kFailure;
        return outcome;
    }
    for (const Invocation& statement : parsed.script.statements) {
        ExecutionScope scope(options.undoable);
        outcome.status = evaluate(statement, outcome.result);
        if (!outcome.status)
            return outcome;
    }
    if (options.echo && !isEmpty(outcome.result))
        log.add(MessageLog::Kind::Result, toText(outcome.result));
    return outcome;
}

} // namespace oz::cmd
