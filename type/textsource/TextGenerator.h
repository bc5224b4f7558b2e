#pragma once

#include "textsource/GeneratorSettings.h"
#include "textsource/TextGeneratorHost.h"

#include <iosfwd>
#include <string>

namespace type {

// Run in the host's Python interpreter before each expression, so expressions
// can use these modules without importing them.
inline constexpr char kPythonPreamble[] = "import zyvo.cmds\n"
                                          "import math\n"
                                          "import random\n"
                                          "import string\n";

// The text the node lays out at this compute, in the textInput hex encoding:
// "textInput" itself when the mode is Off (or a value without a routine),
// otherwise the text the mode generates, which is empty when the mode has
// nothing to show (no key yet, a failing Python expression). The "Type JSON
// Error" line of a bad "animatedType" document goes to `diagnostics`.
std::string generateText(const GeneratorSettings& settings, const TextGeneratorHost& host,
                         std::ostream& diagnostics);

} // namespace type
