#pragma once

#include "graph/NodeType.h"

#include <OpenZyvo/ZPxNode.h>
#include <functional>
#include <memory>
#include <vector>

namespace oz {

// What a node type is registered with. Built-in types (transform, mesh, time,
// animation curves...) and plug-in types go through the same registry.
struct NodeTypeInfo {
    ZString name;
    ZTypeId id;
    ZPxNode::Type kind = ZPxNode::kDependNode;
    // Creates the node's class; may be empty for abstract types.
    std::function<ZPxNode*()> creator;
    // Creates the static attributes (ZPxNode::addAttribute and friends apply
    // to this type while it runs).
    std::function<ZStatus()> initializer;
    ZString classification;
    // The plug-in that owns the type; empty for built-in types.
    ZString pluginName;
    // Built-in types name their API type (kTransform, kMesh, kTime...) and
    // the function sets they accept besides it; plug-in types leave these
    // empty and get the plug-in kind of their node kind.
    ZFn::Type apiType = ZFn::kInvalid;
    std::vector<ZFn::Type> fnTypes;
    // Inherit the attributes of this registered type before the initialiser
    // runs (as ZPxNode::inheritAttributesFrom would).
    ZString parentTypeName;
    bool abstract = false;
};

// The node types known to the graph. Every type inherits the attributes of
// the abstract base type "node" (its "message" attribute); types of a node
// kind also inherit the base type registered for that kind, if any (e.g. the
// deformer base for kDeformerNode).
class NodeTypeRegistry {
public:
    static NodeTypeRegistry& instance();

    // Fails (and registers nothing) on an empty, malformed or taken name, a
    // taken id, a missing creator, or a failed initialiser; `error` explains.
    ZStatus registerType(NodeTypeInfo info, ZString* error = nullptr);
    // Fails while nodes of the type exist in the graph.
    ZStatus deregisterType(const ZTypeId& id, ZString* error = nullptr);
    ZStatus deregisterType(const ZString& name, ZString* error = nullptr);

    std::shared_ptr<NodeType> find(const ZString& name) const;
    std::shared_ptr<NodeType> find(const ZTypeId& id) const;
    std::vector<std::shared_ptr<NodeType>> types() const;

    // Types of `kind` inherit `baseTypeName` (registered before them).
    void setKindBase(ZPxNode::Type kind, const ZString& baseTypeName);

    // The type whose initialiser is running, or null.
    NodeType* initialising() const { return m_initialising; }
    // During an initialiser: the attribute changes with the scene's time, so
    // setting the current time dirties it on every node of the type.
    static ZStatus declareTimeDriven(const ZObject& attribute);

private:
    NodeTypeRegistry();
    std::vector<std::shared_ptr<NodeType>> m_types;
    std::vector<std::pair<ZPxNode::Type, ZString>> m_kindBases;
    NodeType* m_initialising = nullptr;
};

} // namespace oz
