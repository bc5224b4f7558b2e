#pragma once

#include "commands/Executor.h"
#include "commands/Value.h"

namespace oz::builtins {

// Gives the running command its result in any of the language's types.
inline void setResultValue(cmd::Value value) {
    if (cmd::Value* result = cmd::Executor::currentResult())
        *result = std::move(value);
}

} // namespace oz::builtins
