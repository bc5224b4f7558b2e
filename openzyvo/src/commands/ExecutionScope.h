#pragma once

#include <optional>

namespace oz::cmd {

// One level of running commands. The outermost level is a top-level
// command: when it ends, the undoable commands it ran become one undo step
// and the idle queue is drained. Only the main thread runs commands.
class ExecutionScope {
public:
    // `undoable` empty: as the enclosing level (undoable at the top).
    explicit ExecutionScope(std::optional<bool> undoable = std::nullopt);
    ~ExecutionScope();
    ExecutionScope(const ExecutionScope&) = delete;
    ExecutionScope& operator=(const ExecutionScope&) = delete;

    static bool topLevel(); // no scope is open
    static int depth();
    // Whether commands that finish now go on the undo queue.
    static bool recordsUndo();

private:
    bool m_previousUndoable;
};

} // namespace oz::cmd
