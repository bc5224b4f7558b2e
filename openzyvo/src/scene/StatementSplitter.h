#pragma once

#include "commands/SourcePosition.h"

#include <string_view>
#include <vector>

namespace oz::scene {

// One statement of a scene file as written, up to and including its ';'.
struct StatementText {
    std::string_view text;
    int line = 1; // where it starts, counted from 1
    int column = 1;
    enum class End {
        Semicolon,
        EndOfFile,    // the file ends before the ';' (a cut-off file)
        BrokenString, // a string runs into the end of its line; the statement
                      // ends there, so that one bad line cannot swallow the
                      // statements after it
        OpenComment,  // a "/*" that is never closed; line and column are
                      // where it starts, and nothing after it is read
    };
    End end = End::Semicolon;
};

// Splits a scene file into statements at the ';' that are outside strings
// and comments. Comments and blanks between statements are dropped.
std::vector<StatementText> splitStatements(std::string_view source);

} // namespace oz::scene
