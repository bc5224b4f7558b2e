#pragma once

#include <OpenZyvo/ZSyntax.h>
#include <string>
#include <vector>

namespace oz::cmd {

struct FlagSpec {
    std::string shortName; // without the dash
    std::string longName;
    std::vector<ZSyntax::ZArgType> argTypes;
    bool multiUse = false;
    bool queryWithArgs = false;
    bool queryArgsOptional = false;

    bool matches(const std::string& name) const { return name == shortName || name == longName; }
};

struct SyntaxData {
    std::vector<FlagSpec> flags;
    std::vector<ZSyntax::ZArgType> commandArgs;
    ZSyntax::ZObjectFormat objectFormat = ZSyntax::kNone;
    unsigned int minObjects = 0;
    unsigned int maxObjects = ZSyntax::kUnlimited;
    bool selectionAsDefault = false;
    bool query = false;
    bool edit = false;

    const FlagSpec* find(const std::string& name) const {
        for (const FlagSpec& flag : flags)
            if (flag.matches(name))
                return &flag;
        return nullptr;
    }
};

struct SyntaxAccess {
    static const SyntaxData& data(const ZSyntax& syntax) { return *syntax.m_data; }
};

// The word messages use for an argument type ("an integer").
const char* describe(ZSyntax::ZArgType type);

} // namespace oz::cmd
