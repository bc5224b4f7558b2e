#pragma once

#include <string>
#include <string_view>

namespace oz::scene {

// Errors and warnings of the graph commands, in the message log as
// "<command>: <text>". While a scene file is read they start with the file
// and the line of the statement.
void reportError(std::string_view command, const std::string& text);
void reportWarning(std::string_view command, const std::string& text);

std::string noObjectMatches(const std::string& name);
// A name as messages quote it: 'name'.
std::string quoted(const std::string& name);

} // namespace oz::scene
