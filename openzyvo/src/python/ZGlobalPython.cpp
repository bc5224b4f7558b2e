#include "commands/ExecutionScope.h"
#include "commands/IdleQueue.h"
#include "commands/MessageLog.h"
#include "core/StatusOut.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZGlobal.h>

namespace {

// Python runs as one command: the commands it calls through zyvo.cmds are
// nested in it, so what they queue on idle waits until the code has finished.
oz::python::RunOutcome runPython(const ZString& command, bool displayEnabled, bool undoEnabled) {
    oz::cmd::MessageLog& log = oz::cmd::MessageLog::instance();
    if (displayEnabled)
        log.add(oz::cmd::MessageLog::Kind::Echo, command.asStdString());
    oz::python::RunOutcome outcome;
    {
        oz::cmd::ExecutionScope scope(undoEnabled);
        outcome = oz::python::run(command.asStdString());
    }
    if (displayEnabled && outcome.hasResult)
        log.add(oz::cmd::MessageLog::Kind::Result, outcome.result);
    return outcome;
}

} // namespace

ZStatus ZGlobal::executePythonCommand(const ZString& command, bool displayEnabled, bool undoEnabled) {
    return runPython(command, displayEnabled, undoEnabled).status;
}

ZStatus ZGlobal::executePythonCommand(const ZString& command, ZString& result, bool displayEnabled,
                                      bool undoEnabled) {
    const oz::python::RunOutcome outcome = runPython(command, displayEnabled, undoEnabled);
    result = ZString(outcome.result);
    return outcome.status;
}

ZString ZGlobal::executePythonCommandStringResult(const ZString& command, bool displayEnabled,
                                                  bool undoEnabled, ZStatus* status) {
    const oz::python::RunOutcome outcome = runPython(command, displayEnabled, undoEnabled);
    oz::setStatus(status, outcome.status);
    return ZString(outcome.result);
}

ZStatus ZGlobal::executePythonCommandOnIdle(const ZString& command, bool displayEnabled) {
    oz::cmd::IdleQueue::instance().push(
        [command, displayEnabled] { ZGlobal::executePythonCommand(command, displayEnabled, true); });
    return ZStatus::kSuccess;
}
