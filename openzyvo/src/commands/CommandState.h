#pragma once

#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZSyntax.h>
#include <string>

namespace oz::cmd {

// What the runtime tells a command instance before it runs.
struct CommandState {
    std::string name;
    ZSyntax syntax;
};

struct CommandAccess {
    static void prepare(ZPxCommand& command, const std::string& name, const ZSyntax& syntax) {
        command.m_state->name = name;
        command.m_state->syntax = syntax;
    }
};

} // namespace oz::cmd
