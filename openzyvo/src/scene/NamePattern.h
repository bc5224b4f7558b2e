#pragma once

#include <string_view>

namespace oz::scene {

// Name patterns of ls, select and delete: '*' matches any run of
// characters, '?' any one character.
bool isPattern(std::string_view text);
bool matchesPattern(std::string_view pattern, std::string_view name);

} // namespace oz::scene
