#pragma once

#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZStatus.h>
#include <memory>
#include <string>
#include <vector>

namespace oz::cmd {

// The undoable commands that ran, grouped in steps: everything recorded
// while one top-level command runs (including the commands it runs in turn)
// is one step, undone in reverse order and redone in the original order.
class UndoQueue {
public:
    static UndoQueue& instance();

    // Adds a command that has run to the step being recorded.
    void record(std::unique_ptr<ZPxCommand> command, std::string owner);
    // Closes the step being recorded; a non-empty step makes redo impossible.
    void closeStep();

    // kNotFound when there is nothing to undo (or redo); refused while a
    // node computes, since a step may delete nodes.
    ZStatus undo();
    ZStatus redo();
    std::size_t undoSteps() const { return m_done.size(); }
    std::size_t redoSteps() const { return m_undone.size(); }

    // While a step is undone or redone, the commands that its undoIt and
    // redoIt run are not recorded.
    bool replaying() const { return m_replaying; }

    void clear();
    // Drops every step holding a command of the plug-in, before the plug-in's
    // code goes away.
    void forgetOwnedBy(const std::string& owner);

private:
    UndoQueue() = default;

    struct Entry {
        std::unique_ptr<ZPxCommand> command;
        std::string owner;
    };
    using Step = std::vector<Entry>;

    Step m_recording;
    std::vector<Step> m_done;
    std::vector<Step> m_undone;
    bool m_replaying = false;
};

} // namespace oz::cmd
