#pragma once

#include "commands/ArgListData.h"
#include "commands/Value.h"

#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace oz::cmd {

// Runs commands and procedures by name. Everything that calls a command,
// the command language, Python's zyvo.cmds and the host, comes through here.
class Executor {
public:
    // Looks `name` up among the commands, then among the script procedures.
    // Errors are shown with `where` in front ("line 2, column 1: ") and
    // returned; a command that fails without showing an error of its own
    // gets one that names it.
    static ZStatus invoke(const std::string& name, const std::vector<ArgItem>& args, Value& result,
                          const std::string& where = {});

    // The running command, for setResult and for argument errors; empty
    // name and null result outside a command.
    static std::string currentCommandName();
    static Value* currentResult();

    static void reportError(const std::string& text);
};

} // namespace oz::cmd
