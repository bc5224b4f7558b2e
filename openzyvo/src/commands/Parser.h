#pragma once

#include "commands/Ast.h"
#include "commands/SyntaxError.h"

#include <optional>
#include <string_view>

namespace oz::cmd {

struct ParseResult {
    Script script;
    std::optional<SyntaxError> error;
};

// Reads a whole script. Statements end with ';' (the last one may omit it);
// a script with a syntax error yields no statements, so nothing of it runs.
//
//   statement := name '(' [value (',' value)*] ')'      call form
//              | name (flag | value)*                   command form
//   value     := int | float | string | name '(' ... ')' (call form only)
//              | word                                  (command form only)
ParseResult parse(std::string_view source);

} // namespace oz::cmd
