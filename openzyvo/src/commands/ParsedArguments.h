#pragma once

#include "commands/ArgListData.h"
#include "commands/SyntaxData.h"
#include "commands/Value.h"

#include <optional>
#include <string>
#include <vector>

namespace oz::cmd {

// An argument list sorted out by a syntax: each flag use with its converted
// arguments, the typed command arguments and the object names.
struct ParsedArguments {
    struct FlagUse {
        std::string shortName;
        std::string longName;
        std::vector<Value> args;

        bool matches(const std::string& name) const { return name == shortName || name == longName; }
    };

    std::vector<FlagUse> uses;
    std::vector<Value> commandArgs;
    std::vector<std::string> objects;
    bool query = false;
    bool edit = false;

    const FlagUse* use(const std::string& name, unsigned int index = 0) const;
    unsigned int useCount(const std::string& name) const;
    unsigned int distinctFlags() const;
};

struct ParseOutcome {
    std::optional<ParsedArguments> parsed;
    std::string error; // set when parsed is empty, e.g. "invalid flag '-x'"
};

// Flags may stand anywhere among the values; whatever no flag takes becomes
// the command arguments and then the objects.
ParseOutcome parseArguments(const SyntaxData& syntax, const std::vector<ArgItem>& items);

} // namespace oz::cmd
