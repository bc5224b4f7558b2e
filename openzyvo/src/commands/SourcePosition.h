#pragma once

#include <string>
#include <string_view>

namespace oz::cmd {

// Lines end with "\n", "\r\n" or a lone "\r": files come from every system.
inline bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}

// Where something stands in a script, counted from 1.
struct SourcePosition {
    int line = 1;
    int column = 1;

    // Moves past the character at `at` of `source`. Columns count
    // characters, so UTF-8 continuation bytes do not move them; the "\r" of
    // a "\r\n" leaves the line to its "\n".
    void advancePast(std::string_view source, std::size_t at) {
        const char c = source[at];
        if (c == '\n' || (c == '\r' && (at + 1 == source.size() || source[at + 1] != '\n'))) {
            ++line;
            column = 1;
        } else if (c != '\r' && (static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            ++column;
        }
    }
};

// "line 3, column 12: <message>", the form every script error takes.
inline std::string located(SourcePosition position, const std::string& message) {
    return "line " + std::to_string(position.line) + ", column " + std::to_string(position.column) + ": " +
           message;
}

} // namespace oz::cmd
