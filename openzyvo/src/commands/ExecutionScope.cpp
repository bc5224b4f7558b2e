#include "commands/ExecutionScope.h"

#include "commands/IdleQueue.h"
#include "commands/UndoQueue.h"

namespace oz::cmd {

namespace {

int g_depth = 0;
bool g_undoable = true;

} // namespace

ExecutionScope::ExecutionScope(std::optional<bool> undoable)
    : m_previousUndoable(g_undoable) {
    if (undoable)
        g_undoable = g_depth == 0 ? *undoable : (g_undoable && *undoable);
    ++g_depth;
}

ExecutionScope::~ExecutionScope() {
    --g_depth;
    g_undoable = m_previousUndoable;
    if (g_depth == 0) {
        UndoQueue::instance().closeStep();
        IdleQueue::instance().drain();
    }
}

bool ExecutionScope::topLevel() {
    return g_depth == 0;
}

int ExecutionScope::depth() {
    return g_depth;
}

bool ExecutionScope::recordsUndo() {
    return g_undoable && !UndoQueue::instance().replaying();
}

} // namespace oz::cmd
