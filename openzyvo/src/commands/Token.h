#pragma once

#include "commands/SourcePosition.h"

#include <string>

namespace oz::cmd {

struct Token {
    enum class Kind {
        Word,      // a name or a bare word: setAttr, type1.fontSize, |group1|mesh[0]
        Flag,      // -name (text holds the name without its dash)
        Int,       // 12, -3
        Double,    // 1.5, -0.25, 1e-3
        String,    // "quoted", text holds the unescaped contents
        OpenParen, // (
        CloseParen,
        Comma,
        Semicolon,
        End,
    };

    Kind kind = Kind::End;
    std::string text;
    SourcePosition position;
    int intValue = 0;
    double doubleValue = 0.0;
};

const char* describe(Token::Kind kind);

} // namespace oz::cmd
