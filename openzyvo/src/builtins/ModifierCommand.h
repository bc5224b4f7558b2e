#pragma once

#include "commands/ParsedCommand.h"

#include <OpenZyvo/ZDGModifier.h>

namespace oz::builtins {

// A built-in command whose whole edit is one graph modifier: undo and redo
// replay the modifier, so the command keeps no state of its own to restore.
class ModifierCommand : public cmd::ParsedCommand {
public:
    ZStatus undoIt() override { return m_modifier.undoIt(); }
    ZStatus redoIt() override { return m_modifier.doIt(); }
    bool isUndoable() const override { return true; }

protected:
    ZDGModifier m_modifier;
};

} // namespace oz::builtins
