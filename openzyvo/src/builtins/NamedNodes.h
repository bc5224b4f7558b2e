#pragma once

#include <OpenZyvo/ZStringArray.h>
#include <string_view>
#include <vector>

namespace oz {
class Node;
}

namespace oz::builtins {

// The nodes a command works on: those its objects name (names, DAG paths,
// patterns), or the selected ones when it names none. Reports what matches
// nothing, and an empty selection, as errors of `command` and returns false.
bool namedOrSelectedNodes(std::string_view command, const ZStringArray& objects, std::vector<Node*>& nodes);

} // namespace oz::builtins
