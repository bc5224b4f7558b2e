#pragma once

#include "graph/Attribute.h"

#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvo/ZTypeId.h>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace oz {

// A registered node type: what it is, how to make one, and its static
// attributes with their affects relations. Immutable once registered.
class NodeType {
public:
    ZString name;
    ZTypeId id;
    ZPxNode::Type kind = ZPxNode::kDependNode;
    ZFn::Type apiType = ZFn::kPluginDependNode;
    std::vector<ZFn::Type> fnTypes;
    bool dag = false;
    bool abstract = false;
    std::function<ZPxNode*()> creator;
    ZString classification;
    ZString pluginName;
    // The types this one derives from, the most basic first.
    std::vector<ZString> lineage;

    // Top-level attributes in order; every attribute (children after their
    // parent) in order.
    std::vector<std::shared_ptr<Attribute>> roots;
    std::vector<const Attribute*> all;
    std::unordered_map<const Attribute*, unsigned int> rootIndex;
    std::unordered_map<ZString, const Attribute*> byName;
    std::unordered_map<const Attribute*, std::vector<const Attribute*>> affects;
    std::unordered_map<const Attribute*, std::vector<const Attribute*>> affectedBy;
    std::vector<const Attribute*> timeDriven;
    unsigned int liveInstances = 0;

    bool hasFn(ZFn::Type type) const;
    // Whether this is the type `typeName` or derives from it.
    bool isA(const ZString& typeName) const;
    bool hasAttribute(const Attribute* attribute) const;
    const Attribute* findAttribute(const ZString& name) const;

    // Adds a top-level attribute and its children; fails on names in use.
    ZStatus addRoot(const std::shared_ptr<Attribute>& attribute);
    ZStatus addAffects(const Attribute* whenChanges, const Attribute* isAffected);
    ZStatus inherit(const NodeType& parent);

    // The plugs to dirty (as attributes: arrays whole) when a plug of
    // `attribute` is dirtied: what it, its ancestors and its descendants affect.
    const std::vector<const Attribute*>& dirtyTargets(const Attribute* attribute) const;
    // The attributes whose change affects `attribute` or its family.
    const std::vector<const Attribute*>& affectingFamily(const Attribute* attribute) const;

    // Whether a name of `attribute` or its descendants is taken on this type,
    // or used twice among them.
    bool clashes(const Attribute& attribute) const;

private:
    mutable std::unordered_map<const Attribute*, std::vector<const Attribute*>> m_targets;
    mutable std::unordered_map<const Attribute*, std::vector<const Attribute*>> m_sources;
    // Changes with the affects relations, which empty m_targets. Drawn from one counter for all
    // types: attributes shared between types cache their targets by type and version, and a type
    // freed with its plug-in may be followed by another at the same address.
    static std::uint64_t nextTargetsVersion();
    std::uint64_t m_targetsVersion = nextTargetsVersion();
};

} // namespace oz
