#pragma once

#include <string>

namespace oz::cmd {

// Where something stands in a script, counted from 1.
struct SourcePosition {
    int line = 1;
    int column = 1;
};

// "line 3, column 12: <message>", the form every script error takes.
inline std::string located(SourcePosition position, const std::string& message) {
    return "line " + std::to_string(position.line) + ", column " + std::to_string(position.column) + ": " +
           message;
}

} // namespace oz::cmd
