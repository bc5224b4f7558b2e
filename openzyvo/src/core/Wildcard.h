#pragma once

#include <string_view>

namespace oz {

// Name patterns of ls, select, delete and the selection list: '*' matches any run of characters,
// '?' any one character, anything else itself; a pattern matches a whole name, not a part of it.
bool hasWildcards(std::string_view text);
bool matchesWildcard(std::string_view pattern, std::string_view name);

} // namespace oz
