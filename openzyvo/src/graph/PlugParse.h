#pragma once

#include "graph/PlugPath.h"

#include <OpenZyvo/ZStatus.h>
#include <string_view>

namespace oz {

class Node;

// Reads "attr", "attr[3]", "parent[0].child[2].leaf" (long or short names)
// into a path on `node`. The first name may be any attribute of the node,
// children included (its ancestors then get no element index); each further
// name is a child of the one before it.
ZStatus parsePlugPath(const Node& node, std::string_view text, Path& path);

} // namespace oz
