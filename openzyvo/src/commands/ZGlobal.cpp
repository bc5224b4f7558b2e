#include "commands/CommandResultData.h"
#include "commands/IdleQueue.h"
#include "commands/Interpreter.h"
#include "commands/MessageLog.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZGlobal.h>

using oz::cmd::Value;

namespace {

oz::cmd::ScriptOutcome run(const ZString& command, bool displayEnabled, bool undoEnabled) {
    return oz::cmd::runScript(command.view(), {displayEnabled, undoEnabled});
}

template <typename Result>
ZStatus runForResult(const ZString& command, Result& result, bool displayEnabled, bool undoEnabled) {
    ZCommandResult full;
    const ZStatus status = ZGlobal::executeCommand(command, full, displayEnabled, undoEnabled);
    if (!status)
        return status;
    return full.getResult(result);
}

} // namespace

ZStatus ZGlobal::executeCommand(const ZString& command, bool displayEnabled, bool undoEnabled) {
    return run(command, displayEnabled, undoEnabled).status;
}

ZStatus ZGlobal::executeCommand(const ZString& command, ZCommandResult& result, bool displayEnabled,
                                bool undoEnabled) {
    oz::cmd::ScriptOutcome outcome = run(command, displayEnabled, undoEnabled);
    oz::cmd::CommandResultAccess::set(result, std::move(outcome.result));
    return outcome.status;
}

ZStatus ZGlobal::executeCommand(const ZString& command, int& result, bool displayEnabled, bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZStatus ZGlobal::executeCommand(const ZString& command, double& result, bool displayEnabled,
                                bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZStatus ZGlobal::executeCommand(const ZString& command, ZString& result, bool displayEnabled,
                                bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZStatus ZGlobal::executeCommand(const ZString& command, ZStringArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZStatus ZGlobal::executeCommand(const ZString& command, ZIntArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZStatus ZGlobal::executeCommand(const ZString& command, ZDoubleArray& result, bool displayEnabled,
                                bool undoEnabled) {
    return runForResult(command, result, displayEnabled, undoEnabled);
}

ZString ZGlobal::executeCommandStringResult(const ZString& command, bool displayEnabled, bool undoEnabled,
                                            ZStatus* status) {
    oz::cmd::ScriptOutcome outcome = run(command, displayEnabled, undoEnabled);
    oz::setStatus(status, outcome.status);
    return ZString(oz::cmd::toText(outcome.result));
}

ZStatus ZGlobal::executeCommandOnIdle(const ZString& command, bool displayEnabled) {
    oz::cmd::IdleQueue::instance().push(
        [command, displayEnabled] { ZGlobal::executeCommand(command, displayEnabled, true); });
    return ZStatus::kSuccess;
}

void ZGlobal::displayInfo(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Info, text.asStdString());
}

void ZGlobal::displayWarning(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Warning, text.asStdString());
}

void ZGlobal::displayError(const ZString& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Error, text.asStdString());
}
