#pragma once

#include "commands/SyntaxError.h"
#include "commands/Token.h"

#include <optional>
#include <string_view>
#include <vector>

namespace oz::cmd {

struct LexResult {
    std::vector<Token> tokens; // always ends with an End token when there is no error
    std::optional<SyntaxError> error;
};

// Splits a script into tokens. Whitespace and comments (// to the end of the
// line, /* ... */) separate tokens and are dropped.
LexResult tokenize(std::string_view source);

} // namespace oz::cmd
