#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace type {

// "textInput" and every generated text travel as blank-separated hexadecimal
// numbers, one per byte of the UTF-8 text ("33 44 20 54 79 70 65" is "3D Type").

// Two lower-case hexadecimal digits and a blank per byte, so the result ends in
// a blank.
std::string encodeHexText(std::string_view bytes);

// One byte per blank-separated piece. Runs of blanks (and the trailing blank
// the encoder writes) give no piece; a piece that is not an unsigned 32-bit
// hexadecimal number (other characters, or more bits) reads 0, and a larger
// number keeps its low byte.
std::string decodeHexText(std::string_view hexText);

// One UTF-16 code unit per blank-separated token, each read as an unsigned
// 32-bit hexadecimal number (a token that is not one reads 0; a larger number
// keeps its low 16 bits).
QString hexTokensToQString(const std::string& hexTokens);

// The tokens layout reads (one per UTF-16 code unit, as hexTokensToQString
// takes them) for a text in the form "textInput" holds it (UTF-8 bytes).
// Malformed UTF-8 becomes replacement characters.
std::string layoutTokens(std::string_view hexBytes);

} // namespace type
