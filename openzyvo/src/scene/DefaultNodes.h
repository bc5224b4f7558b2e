#pragma once

#include <string_view>

namespace oz {
class Node;
}

namespace oz::scene {

// The nodes every scene has (the clock, time1). They are made when a scene
// starts or when first looked up, their names are kept for them from the
// start, they are never deleted or renamed by commands, and a scene file
// does not create them: it only sets their values and connects them.
void ensureDefaultNodes();
bool isDefaultNode(const Node& node);
bool isDefaultNodeName(std::string_view name);

} // namespace oz::scene
