#include "commands/UndoQueue.h"

#include "commands/MessageLog.h"
#include "core/EvaluationScope.h"

#include <algorithm>

namespace oz::cmd {

namespace {

class ReplayGuard {
public:
    explicit ReplayGuard(bool& flag)
        : m_flag(flag) {
        m_flag = true;
    }
    ~ReplayGuard() { m_flag = false; }

private:
    bool& m_flag;
};

} // namespace

UndoQueue& UndoQueue::instance() {
    static UndoQueue queue;
    return queue;
}

void UndoQueue::record(std::unique_ptr<ZPxCommand> command, std::string owner) {
    m_recording.push_back({std::move(command), std::move(owner)});
}

void UndoQueue::closeStep() {
    if (m_recording.empty())
        return;
    m_done.push_back(std::move(m_recording));
    m_recording.clear();
    m_undone.clear();
}

ZStatus UndoQueue::undo() {
    if (m_done.empty())
        return ZStatus::kNotFound;
    if (const ZStatus refused = refuseDuringEvaluation("undo"); !refused)
        return refused;
    Step step = std::move(m_done.back());
    m_done.pop_back();
    ZStatus status;
    {
        ReplayGuard guard(m_replaying);
        for (auto it = step.rbegin(); it != step.rend(); ++it) {
            const ZStatus undone = it->command->undoIt();
            if (!undone) {
                MessageLog::instance().add(MessageLog::Kind::Error,
                                           it->command->commandName().asStdString() +
                                               ": undo failed: " + undone.errorString().asStdString());
                status = undone;
            }
        }
    }
    m_undone.push_back(std::move(step));
    return status;
}

ZStatus UndoQueue::redo() {
    if (m_undone.empty())
        return ZStatus::kNotFound;
    if (const ZStatus refused = refuseDuringEvaluation("redo"); !refused)
        return refused;
    Step step = std::move(m_undone.back());
    m_undone.pop_back();
    ZStatus status;
    {
        ReplayGuard guard(m_replaying);
        for (Entry& entry : step) {
            const ZStatus redone = entry.command->redoIt();
            if (!redone) {
                MessageLog::instance().add(MessageLog::Kind::Error,
                                           entry.command->commandName().asStdString() +
                                               ": redo failed: " + redone.errorString().asStdString());
                status = redone;
            }
        }
    }
    m_done.push_back(std::move(step));
    return status;
}

void UndoQueue::clear() {
    m_recording.clear();
    m_done.clear();
    m_undone.clear();
}

void UndoQueue::forgetOwnedBy(const std::string& owner) {
    auto holdsOwner = [&](const Step& step) {
        return std::any_of(step.begin(), step.end(),
                           [&](const Entry& entry) { return entry.owner == owner; });
    };
    // Later steps may depend on the forgotten one, so everything from the
    // oldest affected step on is dropped.
    auto firstDone = std::find_if(m_done.begin(), m_done.end(), holdsOwner);
    m_done.erase(firstDone, m_done.end());
    m_undone.clear();
    std::erase_if(m_recording, [&](const Entry& entry) { return entry.owner == owner; });
}

} // namespace oz::cmd
