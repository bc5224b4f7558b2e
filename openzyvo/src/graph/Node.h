#pragma once

#include "graph/Connection.h"
#include "graph/NodeType.h"
#include "graph/Slot.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace oz {

struct CallbackEntry;

// The values of one node, one slot per top-level attribute. The normal
// context keeps one per node; other contexts keep their own, whose root
// slots are current only while their stamp matches the store's (a recycled
// context cache bumps the store's stamp instead of freeing the slots).
struct NodeStore {
    std::vector<std::unique_ptr<Slot>> roots;
    std::vector<std::uint64_t> stamps;
    std::uint64_t stamp = 0;
};

// A node instance: its type, its object of the node's class, its values,
// connections, dynamic attributes and callbacks.
class Node final : public Object {
public:
    enum class State {
        Detached,  // made, not yet in the graph (a modifier's createNode before doIt)
        Live,      // in the graph
        Deleted,   // out of the graph, kept so that an undo can restore it
        Finalised, // gone; handles to it are dead
    };

    explicit Node(std::shared_ptr<NodeType> type);
    ~Node() override;

    ZFn::Type apiType() const override { return type->apiType; }
    bool hasFn(ZFn::Type fn) const override { return state != State::Finalised && type->hasFn(fn); }
    ZPxNode* userNode() const override { return hasFn(ZFn::kDependencyNode) ? user.get() : nullptr; }

    bool usable() const { return state == State::Live || state == State::Detached; }

    unsigned int rootCount() const;
    // The attribute of a root slot; null for a removed dynamic attribute.
    const std::shared_ptr<Attribute>& rootAttribute(unsigned int slot) const;
    // The root slot of a top-level attribute of this node, or -1.
    int rootSlotOf(const Attribute* root) const;
    bool hasAttribute(const Attribute* attribute) const;
    // Long or short name of any attribute of the node, children included.
    const Attribute* findAttribute(const ZString& name) const;
    // The path to `attribute` with no element chosen; false when the
    // attribute is not on this node.
    bool pathTo(const Attribute* attribute, Path& path) const;
    std::vector<const Attribute*> allAttributes() const;

    // The normal value of a path, created (with defaults) when missing; null
    // when the path does not lead anywhere on this node.
    Slot* slot(const Path& path) { return resolve(normal, path, true); }
    // The slot of `path` in `store`; when `create` is false, null for missing
    // elements. Missing root slots of another context are copied from the
    // normal ones, all dirty.
    Slot* resolve(NodeStore& store, const Path& path, bool create);

    void addPending(const Path& path);

    std::shared_ptr<NodeType> type;
    std::unique_ptr<ZPxNode> user;
    ZString name;
    State state = State::Detached;
    std::vector<std::shared_ptr<Attribute>> dynamicAttrs;
    NodeStore normal;
    std::vector<std::shared_ptr<Connection>> incoming, outgoing;
    // Plugs dirtied since the node was last evaluated, for preEvaluation.
    std::vector<Path> pending;
    std::vector<const Attribute*> timeDriven;
    std::vector<std::shared_ptr<CallbackEntry>> callbacks;
    unsigned int attributeChangedCallbacks = 0;
    unsigned int dirtyPlugCallbacks = 0;
    Node* dagParent = nullptr;
    std::vector<Node*> dagChildren;

    // The store of this node in the context cache used last, so repeated
    // reads in one context skip the cache's lookup.
    struct ContextLookup {
        std::uint64_t cache = 0;
        NodeStore* store = nullptr;
    } contextLookup;
};

// The node a ZObject refers to; null for other objects and for finalised nodes.
Node* nodeOf(const ZObject& object);
ZObject wrapNode(Node& node);

} // namespace oz
