#pragma once

#include "scene/StatementSplitter.h"

#include <optional>
#include <string>
#include <vector>

namespace oz::scene {

// The version a scene file's header states (fileInfo "version" "205";),
// looked up before anything of the file runs. Empty when the header has
// none or `text` holds something else than a number, as `stated`.
std::optional<int> headerVersion(const std::vector<StatementText>& statements, std::string& stated);

// Runs the statements of a scene file (the source names it in messages).
// Unlike a script, a statement that fails (an unknown node type, a bad
// value, a missing connection end, a syntax error, a cut-off end) is
// reported with its line and the next one runs. Statements about nodes
// that could not be made are skipped and counted once.
void runSceneStatements(const std::vector<StatementText>& statements, const std::string& source);

} // namespace oz::scene
