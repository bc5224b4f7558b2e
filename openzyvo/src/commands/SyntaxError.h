#pragma once

#include "commands/SourcePosition.h"

#include <string>

namespace oz::cmd {

// A script that cannot be read: where and why.
struct SyntaxError {
    SourcePosition position;
    std::string message;

    std::string text() const { return located(position, message); }
};

} // namespace oz::cmd
