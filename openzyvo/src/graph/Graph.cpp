#include "graph/Graph.h"

#include "core/EvaluationScope.h"
#include "graph/Callbacks.h"
#include "graph/Names.h"
#include "graph/NodeAccess.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDGModifier.h>
#include <algorithm>

namespace oz {

Graph& Graph::instance() {
    // Never destroyed: what holds nodes (undo records, selections, scripts)
    // may still let go of them while the process exits, and nodes left then
    // must not run code of plug-ins already closed. The host ends the scene
    // before it exits.
    static Graph* const graph = new Graph;
    return *graph;
}

void Graph::touch(bool structural) {
    ++m_edit;
    if (structural)
        ++m_topology;
}

ZStatus Graph::instantiate(const std::shared_ptr<NodeType>& type, std::shared_ptr<Node>& node) {
    if (!type || type->abstract || !type->creator)
        return ZStatus::kInvalidParameter;
    ZPxNode* user = type->creator();
    if (!user)
        return ZStatus::kFailure;
    node = std::make_shared<Node>(type);
    node->user.reset(user);
    NodeAccess::bind(*user, node.get());
    node->state = Node::State::Detached;
    // Until it joins the graph it is ended with the other nodes out of it
    // (a new scene, its type deregistered), wherever it is held.
    m_detached.push_back(node);
    return ZStatus::kSuccess;
}

void Graph::reserveName(const ZString& name, const ZString& typeName) {
    m_reserved[name] = typeName;
}

bool Graph::isTaken(const ZString& name, const ZString& typeName, bool asked) const {
    if (m_byName.count(name))
        return true;
    const auto reserved = m_reserved.find(name);
    return reserved != m_reserved.end() && !(asked && reserved->second == typeName);
}

ZString Graph::uniqueName(const ZString& requested, const ZString& typeName) {
    if (!requested.isEmpty() && !isTaken(requested, typeName, true))
        return requested;
    const ZString stem = requested.isEmpty() ? typeName : nameStem(requested);
    unsigned int& next = m_nextSuffix[stem];
    for (;;) {
        ZString candidate = stem + ZString(std::to_string(++next));
        if (!isTaken(candidate, typeName, false))
            return candidate;
    }
}

ZStatus Graph::attach(Node& node, const ZString& requestedName) {
    if (node.state != Node::State::Detached && node.state != Node::State::Deleted)
        return ZStatus::kInvalidParameter;
    if (!requestedName.isEmpty() && !isValidName(requestedName))
        return ZStatus::kInvalidParameter;
    node.name = uniqueName(requestedName, node.type->name);
    m_byName.emplace(node.name, &node);
    m_nodes.push_back(PlugAccess::sharedNode(node));
    m_detached.erase(std::remove_if(m_detached.begin(), m_detached.end(),
                                    [&](const std::weak_ptr<Node>& w) {
                                        auto n = w.lock();
                                        return !n || n.get() == &node;
                                    }),
                     m_detached.end());
    node.state = Node::State::Live;
    ++node.type->liveInstances;
    if (!node.type->timeDriven.empty() || !node.timeDriven.empty())
        m_timeDrivenNodes.push_back(&node);
    touch(true);
    return ZStatus::kSuccess;
}

ZStatus Graph::createNode(const std::shared_ptr<NodeType>& type, const ZString& name,
                          std::shared_ptr<Node>& node) {
    if (!name.isEmpty() && !isValidName(name))
        return ZStatus::kInvalidParameter;
    std::shared_ptr<Node> made;
    ZStatus status = instantiate(type, made);
    if (!status)
        return status;
    status = attach(*made, name);
    if (!status)
        return status;
    made->user->postConstructor();
    node = std::move(made);
    return ZStatus::kSuccess;
}

ZStatus Graph::createNode(const ZString& typeName, const ZString& name, std::shared_ptr<Node>& node) {
    auto type = NodeTypeRegistry::instance().find(typeName);
    if (!type)
        return ZStatus::kNotFound;
    return createNode(type, name, node);
}

ZStatus Graph::detach(Node& node, ZDGModifier* modifier, std::vector<std::shared_ptr<Connection>>* broken,
                      std::vector<std::shared_ptr<Node>>* detached) {
    if (node.state != Node::State::Live)
        return ZStatus::kInvalidParameter;
    if (const ZStatus refused = refuseDuringEvaluation("delete nodes"); !refused)
        return refused;
    auto keep = PlugAccess::sharedNode(node);
    for (Node* child : std::vector<Node*>(node.dagChildren)) {
        ZStatus status = detach(*child, modifier, broken, detached);
        if (!status)
            return status;
    }
    if (modifier) {
        Callbacks::instance().aboutToDelete(node, *modifier);
    } else {
        ZDGModifier scratch;
        Callbacks::instance().aboutToDelete(node, scratch);
    }
    std::vector<std::shared_ptr<Connection>> connections = node.incoming;
    connections.insert(connections.end(), node.outgoing.begin(), node.outgoing.end());
    for (const auto& connection : connections) {
        if (std::find(node.incoming.begin(), node.incoming.end(), connection) == node.incoming.end() &&
            std::find(node.outgoing.begin(), node.outgoing.end(), connection) == node.outgoing.end())
            continue;
        disconnect(connection);
        if (broken)
            broken->push_back(connection);
    }
    Callbacks::instance().preRemoval(node);
    if (node.dagParent) {
        auto& siblings = node.dagParent->dagChildren;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), &node), siblings.end());
    }
    m_byName.erase(node.name);
    m_nodes.erase(std::remove(m_nodes.begin(), m_nodes.end(), keep), m_nodes.end());
    m_timeDrivenNodes.erase(std::remove(m_timeDrivenNodes.begin(), m_timeDrivenNodes.end(), &node),
                            m_timeDrivenNodes.end());
    m_detached.push_back(keep);
    node.state = Node::State::Deleted;
    --node.type->liveInstances;
    if (detached)
        detached->push_back(keep);
    touch(true);
    return ZStatus::kSuccess;
}

void Graph::finalise(Node& node) {
    if (node.state == Node::State::Finalised)
        return;
    if (node.state == Node::State::Live && !detach(node, nullptr, nullptr, nullptr))
        return;
    auto keep = PlugAccess::sharedNode(node);
    // A node that never joined the graph may still have been connected.
    for (const auto& c : std::vector<std::shared_ptr<Connection>>(node.incoming))
        disconnect(c);
    for (const auto& c : std::vector<std::shared_ptr<Connection>>(node.outgoing))
        disconnect(c);
    node.state = Node::State::Finalised;
    // The class object's destructor may remove its own callbacks first.
    node.user.reset();
    Callbacks::instance().removeAll(node);
    for (Node* child : node.dagChildren)
        child->dagParent = nullptr;
    node.dagChildren.clear();
    node.dagParent = nullptr;
    node.normal.roots.clear();
    node.pending.clear();
    m_detached.erase(std::remove_if(m_detached.begin(), m_detached.end(),
                                    [&](const std::weak_ptr<Node>& w) {
                                        auto n = w.lock();
                                        return !n || n.get() == &node;
                                    }),
                     m_detached.end());
}

ZStatus Graph::deleteNode(Node& node) {
    std::vector<std::shared_ptr<Node>> detached;
    ZStatus status = detach(node, nullptr, nullptr, &detached);
    if (!status)
        return status;
    for (const auto& n : detached)
        finalise(*n);
    return ZStatus::kSuccess;
}

void Graph::finaliseDetached(const NodeType& type) {
    std::vector<std::shared_ptr<Node>> doomed;
    for (const auto& weak : m_detached)
        if (auto node = weak.lock(); node && node->type.get() == &type)
            doomed.push_back(node);
    for (const auto& node : doomed)
        finalise(*node);
}

ZStatus Graph::rename(Node& node, const ZString& name, ZString* result) {
    if (!node.usable() || !isValidName(name))
        return ZStatus::kInvalidParameter;
    if (name == node.name) {
        if (result)
            *result = name;
        return ZStatus::kSuccess;
    }
    const ZString previous = node.name;
    const bool live = node.state == Node::State::Live;
    if (live)
        m_byName.erase(previous);
    node.name = live ? uniqueName(name, node.type->name) : name;
    if (live)
        m_byName.emplace(node.name, &node);
    if (result)
        *result = node.name;
    touch(false);
    Callbacks::instance().nameChanged(node, previous);
    return ZStatus::kSuccess;
}

Node* Graph::findNode(const ZString& name) const {
    auto it = m_byName.find(name);
    return it == m_byName.end() ? nullptr : it->second;
}

ZStatus Graph::clear() {
    if (const ZStatus refused = refuseDuringEvaluation("replace the scene"); !refused)
        return refused;
    while (!m_nodes.empty()) {
        Node* root = m_nodes.back().get();
        while (root->dagParent)
            root = root->dagParent;
        deleteNode(*root);
    }
    for (const auto& weak : std::vector<std::weak_ptr<Node>>(m_detached))
        if (auto node = weak.lock())
            finalise(*node);
    m_detached.clear();
    m_nextSuffix.clear();
    m_contextCaches.clear();
    m_time = ZTime(0.0);
    touch(true);
    return ZStatus::kSuccess;
}

ZStatus Graph::setParent(Node& child, Node* parent) {
    if (!child.usable() || !child.type->dag || (parent && (!parent->usable() || !parent->type->dag)))
        return ZStatus::kInvalidParameter;
    for (Node* p = parent; p; p = p->dagParent)
        if (p == &child)
            return ZStatus::kInvalidParameter;
    if (child.dagParent) {
        auto& siblings = child.dagParent->dagChildren;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), &child), siblings.end());
    }
    child.dagParent = parent;
    if (parent)
        parent->dagChildren.push_back(&child);
    touch(true);
    return ZStatus::kSuccess;
}

std::shared_ptr<ContextCache> Graph::contextCache(const ZTime& time) {
    constexpr std::size_t kKept = 8;
    for (std::size_t i = 0; i < m_contextCaches.size(); ++i) {
        auto& cache = m_contextCaches[i];
        const bool sameTime =
            cache->time.unit() == time.unit() ? cache->time.value() == time.value() : cache->time == time;
        if (cache->generation == m_edit && sameTime) {
            std::rotate(m_contextCaches.begin(), m_contextCaches.begin() + i,
                        m_contextCaches.begin() + i + 1);
            return m_contextCaches.front();
        }
    }
    std::shared_ptr<ContextCache> cache;
    if (m_contextCaches.size() >= kKept) {
        // Recycle the oldest cache unless an evaluation still uses it. Its
        // stores stay allocated while the graph is unchanged (their nodes
        // still exist); after an edit they go.
        cache = std::move(m_contextCaches.back());
        m_contextCaches.pop_back();
        if (cache.use_count() > 1) {
            cache = std::make_shared<ContextCache>();
            cache->id = ++m_contextCacheIds;
        } else if (cache->generation != m_edit) {
            cache->stores.clear();
            cache->id = ++m_contextCacheIds;
        }
        ++cache->stamp;
    } else {
        cache = std::make_shared<ContextCache>();
        cache->id = ++m_contextCacheIds;
    }
    cache->time = time;
    cache->generation = m_edit;
    m_contextCaches.insert(m_contextCaches.begin(), cache);
    return cache;
}

} // namespace oz
