#pragma once

#include "graph/Attribute.h"
#include "graph/PlugPath.h"

#include <memory>

namespace oz {

class Node;

// A connection from a plug of one node to a plug of another (or the same).
// Both nodes list it; it is removed from both before either leaves the graph.
struct Connection {
    Node* srcNode = nullptr;
    Path src;
    std::shared_ptr<Attribute> srcRoot;
    Node* dstNode = nullptr;
    Path dst;
    std::shared_ptr<Attribute> dstRoot;
};

} // namespace oz
