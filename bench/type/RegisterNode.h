#pragma once

#include "graph/NodeTypeRegistry.h"

#include <cstdlib>

namespace type {

// Registers a node class of the plug-in straight with the runtime's node registry, so that a
// benchmark measures the node without loading Type.so; a second call leaves it registered. Nodes
// of a kind with a base (deformers) get the base's attributes, as a plug-in's do.
template <typename Node> void registerNode(ZPxNode::Type kind = ZPxNode::kDependNode) {
    if (oz::NodeTypeRegistry::instance().find(ZString(Node::kTypeName)))
        return;
    oz::NodeTypeInfo info;
    info.name = Node::kTypeName;
    info.id = ZTypeId(Node::kTypeId);
    info.kind = kind;
    info.creator = [] {
        return static_cast<ZPxNode*>(Node::creator());
    };
    info.initializer = Node::initialize;
    if (!oz::NodeTypeRegistry::instance().registerType(std::move(info)))
        std::abort();
}

} // namespace type
