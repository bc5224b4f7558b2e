#include "commands/Executor.h"

#include "commands/CommandRegistry.h"
#include "commands/CommandState.h"
#include "commands/ExecutionScope.h"
#include "commands/MessageLog.h"
#include "commands/ParsedArguments.h"
#include "commands/ProcedureRegistry.h"
#include "commands/UndoQueue.h"

#include <exception>

namespace oz::cmd {

namespace {

// Far beyond what real scripts nest; a procedure that calls itself for ever
// stops here instead of exhausting the stack.
constexpr int kMaxDepth = 500;

struct Frame {
    std::string name;
    Value* result;
};

std::vector<Frame>& frames() {
    static std::vector<Frame> stack;
    return stack;
}

class FrameGuard {
public:
    FrameGuard(const std::string& name, Value& result) { frames().push_back({name, &result}); }
    ~FrameGuard() { frames().pop_back(); }
};

// Plug-in code must not throw into the host; if it does, the call fails
// with an error instead of taking the host down.
template <typename Call> ZStatus guarded(const std::string& where, const std::string& name, Call call) {
    try {
        return call();
    } catch (const std::exception& error) {
        Executor::reportError(where + name + ": " + error.what());
    } catch (...) {
        Executor::reportError(where + name + ": unexpected exception");
    }
    return ZStatus::kFailure;
}

void reportUnreported(std::size_t errorsBefore, const std::string& where, const std::string& name,
                      ZStatus status) {
    if (MessageLog::instance().errorCount() == errorsBefore)
        Executor::reportError(where + name + ": " + status.errorString().asStdString());
}

ZStatus runCommand(const CommandInfo& info, const std::vector<ArgItem>& args, Value& result,
                   const std::string& where) {
    std::unique_ptr<ZPxCommand> command;
    const ZStatus created = guarded(where, info.name, [&] {
        command = info.create();
        return command ? ZStatus::kSuccess : ZStatus::kFailure;
    });
    if (!created) {
        Executor::reportError(where + info.name + ": the command could not be created");
        return ZStatus::kFailure;
    }
    const ZSyntax syntax = info.makeSyntax ? info.makeSyntax() : ZSyntax();
    CommandAccess::prepare(*command, info.name, syntax);

    if (info.makeSyntax && command->hasSyntax()) {
        const ParseOutcome outcome = parseArguments(SyntaxAccess::data(syntax), args);
        if (!outcome.parsed) {
            Executor::reportError(where + info.name + ": " + outcome.error);
            return ZStatus::kInvalidParameter;
        }
    }

    const std::size_t errorsBefore = MessageLog::instance().errorCount();
    ZStatus status;
    {
        FrameGuard frame(info.name, result);
        const ZArgList argList = ArgListAccess::make(args);
        status = guarded(where, info.name, [&] { return command->doIt(argList); });
    }
    if (!status) {
        reportUnreported(errorsBefore, where, info.name, status);
        return status;
    }
    if (ExecutionScope::recordsUndo() && command->isUndoable())
        UndoQueue::instance().record(std::move(command), info.owner);
    return ZStatus::kSuccess;
}

ZStatus runProcedure(const std::string& name, const Procedure& procedure, const std::vector<ArgItem>& args,
                     Value& result, const std::string& where) {
    std::vector<Value> values;
    values.reserve(args.size());
    for (const ArgItem& item : args)
        values.push_back(item.isFlag ? Value("-" + std::get<std::string>(item.value)) : item.value);
    const std::size_t errorsBefore = MessageLog::instance().errorCount();
    const ZStatus status = guarded(where, name, [&] { return procedure(values, result); });
    if (!status)
        reportUnreported(errorsBefore, where, name, status);
    return status;
}

} // namespace

ZStatus Executor::invoke(const std::string& name, const std::vector<ArgItem>& args, Value& result,
                         const std::string& where) {
    ExecutionScope scope;
    result = Value();
    if (ExecutionScope::depth() > kMaxDepth) {
        reportError(where + name + ": commands are nested too deeply");
        return ZStatus::kFailure;
    }
    if (const auto command = CommandRegistry::instance().find(name))
        return runCommand(*command, args, result, where);
    if (const auto procedure = ProcedureRegistry::instance().find(name))
        return runProcedure(name, *procedure, args, result, where);
    reportError(where + "Cannot find procedure \"" + name + "\".");
    return ZStatus::kNotFound;
}

std::string Executor::currentCommandName() {
    return frames().empty() ? std::string() : frames().back().name;
}

Value* Executor::currentResult() {
    return frames().empty() ? nullptr : frames().back().result;
}

void Executor::reportError(const std::string& text) {
    MessageLog::instance().add(MessageLog::Kind::Error, text);
}

} // namespace oz::cmd
