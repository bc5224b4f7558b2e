#pragma once

#include "commands/Value.h"

#include <OpenZyvo/ZStatus.h>
#include <string_view>

namespace oz::cmd {

struct ScriptOptions {
    bool echo = false;     // show the script and its result in the message log
    bool undoable = false; // record the commands it runs for undo
};

struct ScriptOutcome {
    ZStatus status;
    Value result; // the result of the last statement
};

// Runs a script of the command language. A script that does not parse runs
// not at all; otherwise its statements run in order until one fails. Run
// from outside any command, each statement is a top-level command of its
// own: one undo step, followed by a drain of the idle queue. The errors of
// the language itself start with where they stand ("line 2, column 1: ");
// read from a `file`, every error and warning of a statement starts with
// the file's name and the statement's place ("job.zys: line 2, column 1: ").
ScriptOutcome runScript(std::string_view source, const ScriptOptions& options = {},
                        std::string_view file = {});

} // namespace oz::cmd
