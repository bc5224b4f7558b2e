#pragma once

#include <string>

namespace oz::scene {

// Pieces of command-language text, as scene files and commands write them.

// Text quoted so that the command language reads it back: \" \\ \n \t \r.
void appendQuoted(std::string& out, const std::string& text);
// A blank, then the number in its shortest exact form; values that are not
// finite as the quoted words "inf", "-inf" and "nan", which setAttr reads.
void appendNumber(std::string& out, double value);

} // namespace oz::scene
