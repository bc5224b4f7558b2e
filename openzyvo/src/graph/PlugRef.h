#pragma once

#include "graph/Node.h"
#include "graph/PlugPath.h"

#include <OpenZyvo/ZPlug.h>
#include <memory>

namespace oz {

// What a ZPlug refers to. It holds the node and the top-level attribute of
// the path, so both outlive the plug.
struct PlugRef {
    std::shared_ptr<Node> node;
    std::shared_ptr<Attribute> root;
    Path path;

    // The node can be used and the path still leads to an attribute of it
    // (a removed dynamic attribute leaves its plugs dangling).
    bool valid() const;
    const Attribute* leaf() const { return leafAttribute(path); }
};

struct PlugAccess {
    static const PlugRef* get(const ZPlug& plug) { return plug.m_ref.get(); }
    static ZPlug make(PlugRef ref);
    static ZPlug make(Node& node, Path path);
    // A plug on `node` for `attribute`, with no element chosen.
    static ZPlug make(Node& node, const Attribute* attribute);
    static std::shared_ptr<Node> sharedNode(Node& node);
};

} // namespace oz
