#pragma once

#include <string>
#include <string_view>

namespace oz::scene {

// Errors and warnings of the graph commands, in the message log as
// "<command>: <text>". Run from a script or scene file they start with the
// file and the line of the statement (the message log's origin).
void reportError(std::string_view command, const std::string& text);
void reportWarning(std::string_view command, const std::string& text);

std::string noObjectMatches(const std::string& name);
// A name as messages quote it: 'name'.
std::string quoted(const std::string& name);

} // namespace oz::scene
