#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace oz {

class Node;

struct NodeAccess {
    static void bind(ZPxNode& user, Node* node) { user.m_node = node; }
    static Node* node(const ZPxNode& user) { return user.m_node; }
};

} // namespace oz
