#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace type {

using Declaration = std::pair<std::string, std::string>;

// "fill:#fff; stroke : none" as (name, value) pairs, blanks trimmed.
std::vector<Declaration> splitDeclarations(std::string_view style);

// The declarations the style sheet lists under ".name" for each class of a
// "class" attribute ("st0 st1"), in sheet order. Only plain class selectors
// are matched; a rule naming several selectors applies to each of them.
std::vector<Declaration> classDeclarations(std::string_view styleSheet, std::string_view classes);

} // namespace type
