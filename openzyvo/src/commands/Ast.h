#pragma once

#include "commands/SourcePosition.h"
#include "commands/Value.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace oz::cmd {

struct Invocation;

struct FlagArgument {
    std::string name; // without its dash
};

// One argument as written: a literal value, a flag, or a nested call whose
// result becomes the value.
struct Argument {
    std::variant<Value, FlagArgument, std::shared_ptr<const Invocation>> node;
    SourcePosition position;
};

// A command or procedure called by name, in command form
// (`setAttr -type "string" t.name "x"`) or call form (`f("x", 3)`).
struct Invocation {
    std::string name;
    std::vector<Argument> arguments;
    SourcePosition position;
};

// A script is its statements in order; each statement is one invocation.
struct Script {
    std::vector<Invocation> statements;
};

} // namespace oz::cmd
