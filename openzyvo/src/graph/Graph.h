#pragma once

#include "graph/Evaluator.h"
#include "graph/Node.h"
#include "graph/PlugKey.h"
#include "graph/PlugRef.h"

#include <OpenZyvo/ZTime.h>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

class ZDGModifier;

namespace oz {

// The scene's dependency graph: its nodes and their names, connections,
// dirty propagation and the current time. One per process; used from the
// main thread only.
class Graph {
public:
    static Graph& instance();

    // Nodes.
    // A node of `type`, not yet in the graph.
    ZStatus instantiate(const std::shared_ptr<NodeType>& type, std::shared_ptr<Node>& node);
    // Puts a detached or deleted node into the graph under a unique name
    // derived from `requestedName` (the type name when empty).
    ZStatus attach(Node& node, const ZString& requestedName);
    // instantiate + attach + postConstructor.
    ZStatus createNode(const std::shared_ptr<NodeType>& type, const ZString& name,
                       std::shared_ptr<Node>& node);
    ZStatus createNode(const ZString& typeName, const ZString& name, std::shared_ptr<Node>& node);
    // Takes a live node out of the graph, its DAG children first: about-to-
    // delete callbacks, connections broken (appended to `broken`), pre-removal
    // callbacks. The node stays restorable with attach() until finalise().
    ZStatus detach(Node& node, ZDGModifier* modifier, std::vector<std::shared_ptr<Connection>>* broken,
                   std::vector<std::shared_ptr<Node>>* detached);
    // Ends a node for good: its class object is destroyed and its callbacks
    // removed. A live node is detached first, unless that is refused.
    void finalise(Node& node);
    // detach + finalise.
    ZStatus deleteNode(Node& node);
    void finaliseDetached(const NodeType& type);
    ZStatus rename(Node& node, const ZString& name, ZString* result = nullptr);
    Node* findNode(const ZString& name) const;
    // Keeps a name for a node every scene has (made on demand): only a node
    // of `typeName` that asks for the name gets it; any other node, and any
    // node named automatically, gets another.
    void reserveName(const ZString& name, const ZString& typeName);
    const std::vector<std::shared_ptr<Node>>& nodes() const { return m_nodes; }
    // Deletes every node (a new scene) and resets the time to 0.
    ZStatus clear();
    // "node.attr[2].child" to a plug.
    ZStatus findPlug(const ZString& fullName, ZPlug& plug) const;

    // DAG parenting of nodes whose type is a DAG kind.
    ZStatus setParent(Node& child, Node* parent);

    // Dynamic attributes.
    ZStatus addDynamicAttribute(Node& node, const std::shared_ptr<Attribute>& attribute);
    ZStatus removeDynamicAttribute(Node& node, const Attribute* attribute);

    // Values. `write` changes the stored value; then the plug is clean and
    // what depends on it dirty. Fails on plugs driven by a connection.
    ZStatus setValue(Node& node, const Path& path,
                     const std::function<ZStatus(Slot&, const Attribute&)>& write);
    // Removes an array element (connections to or from it must be broken).
    ZStatus removeElement(Node& node, const Path& element);

    // Connections.
    // With `checkExisting` false, a destination that already has a source is
    // accepted (a caller about to break that connection first).
    ZStatus canConnect(const PlugRef& src, const PlugRef& dst, ZString* reason = nullptr,
                       bool checkExisting = true) const;
    ZStatus connect(const PlugRef& src, const PlugRef& dst);
    ZStatus disconnect(const PlugRef& src, const PlugRef& dst);
    ZStatus disconnect(const std::shared_ptr<Connection>& connection);
    std::shared_ptr<Connection> findConnection(const PlugRef& src, const PlugRef& dst) const;
    // The connection into `path` or into a plug containing it.
    std::shared_ptr<Connection> driver(const Node& node, const Path& path) const;

    // Dirties a plug (unless `markSelf` is false: a plug whose value was just
    // set) and propagates to what depends on it.
    void dirty(Node& node, const Path& path, bool markSelf);

    // Time. Setting it dirties every time-driven plug.
    void setCurrentTime(const ZTime& time);
    ZTime currentTime() const { return m_time; }
    ZStatus setTimeDriven(Node& node, const Attribute* attribute, bool timeDriven);
    // Whether a plug of `attribute` can change with time: setting the time
    // would dirty it (through affects relations and connections from a
    // time-driven plug).
    bool isTimeDependent(Node& node, const Attribute* attribute);

    // Edits of values, connections and nodes count up `editGeneration`;
    // changes of structure also count up `topologyVersion`.
    std::uint64_t editGeneration() const { return m_edit; }
    std::uint64_t topologyVersion() const { return m_topology; }
    void touch(bool structural);

    std::shared_ptr<ContextCache> contextCache(const ZTime& time);
    Evaluator& evaluator() { return m_evaluator; }

private:
    Graph() = default;
    bool isTaken(const ZString& name, const ZString& typeName, bool asked) const;
    ZString uniqueName(const ZString& requested, const ZString& typeName);
    void findTimeDependence();
    void breakConnection(const std::shared_ptr<Connection>& connection);

    std::vector<std::shared_ptr<Node>> m_nodes;
    std::unordered_map<ZString, Node*> m_byName;
    std::unordered_map<ZString, unsigned int> m_nextSuffix;
    std::unordered_map<ZString, ZString> m_reserved; // name → the only type that may take it
    std::vector<Node*> m_timeDrivenNodes;
    // Nodes made but not yet in the graph, and deleted nodes that may still
    // come back through an undo.
    std::vector<std::weak_ptr<Node>> m_detached;
    ZTime m_time{0.0};
    std::uint64_t m_edit = 1;
    std::uint64_t m_topology = 1;
    std::uint64_t m_timeDependenceVersion = 0;
    PlugKeySet m_timeDependence;
    std::vector<std::shared_ptr<ContextCache>> m_contextCaches;
    std::uint64_t m_contextCacheIds = 0;
    Evaluator m_evaluator;
};

} // namespace oz
