#include "commands/BuiltinCommand.h"
#include "commands/UndoQueue.h"

namespace {

// `undo` and `redo` step through the undo queue; neither is undoable itself.
class UndoCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override {
        const ZStatus status = oz::cmd::UndoQueue::instance().undo();
        if (status == ZStatus::kNotFound) {
            displayWarning("There are no more commands to undo.");
            return ZStatus::kSuccess;
        }
        return status;
    }
};

class RedoCommand : public ZPxCommand {
public:
    ZStatus doIt(const ZArgList&) override {
        const ZStatus status = oz::cmd::UndoQueue::instance().redo();
        if (status == ZStatus::kNotFound) {
            displayWarning("There are no more commands to redo.");
            return ZStatus::kSuccess;
        }
        return status;
    }
};

ZSyntax noArguments() {
    return ZSyntax();
}

const oz::cmd::BuiltinCommand undoRegistration(
    "undo", [] { return std::make_unique<UndoCommand>(); }, noArguments);
const oz::cmd::BuiltinCommand redoRegistration(
    "redo", [] { return std::make_unique<RedoCommand>(); }, noArguments);

} // namespace
