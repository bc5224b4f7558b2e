#pragma once

#include "commands/CommandRegistry.h"

#include <cstdio>

namespace oz::cmd {

// Registers one of the host's own commands when the runtime library loads.
// A built-in command is an ordinary registered command without an owner:
//
//     namespace {
//     const oz::cmd::BuiltinCommand registration("undo", [] { return std::make_unique<UndoCommand>(); },
//                                                UndoCommand::newSyntax);
//     }
struct BuiltinCommand {
    BuiltinCommand(const char* name, CommandCreator create, SyntaxCreator makeSyntax = {}) {
        if (!CommandRegistry::instance().add({name, std::move(create), std::move(makeSyntax), {}}))
            std::fprintf(stderr, "Built-in command \"%s\" could not be registered.\n", name);
    }
};

} // namespace oz::cmd
