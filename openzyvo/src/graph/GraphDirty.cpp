#include "graph/Callbacks.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZPlugArray.h>
#include <algorithm>

namespace oz {

namespace {

// The plug at the other end of `connection` for `path`, a plug related to
// its source: the matching child or element under the destination, or the
// destination itself when `path` contains the source.
Path downstreamPath(const Connection& connection, const Path& path) {
    if (!covers(connection.src, path) || path.size() == connection.src.size())
        return connection.dst;
    Path out = connection.dst;
    const std::size_t base = connection.src.size();
    if (out.back().index < 0 && path[base - 1].index >= 0)
        out.back().index = path[base - 1].index;
    const Attribute* at = out.back().attr;
    for (std::size_t i = base; i < path.size(); ++i) {
        if (path[i].slot >= at->children.size())
            return connection.dst;
        at = at->children[path[i].slot].get();
        out.push_back(PathEntry{at, path[i].slot, path[i].index});
    }
    return out;
}

void markAncestorsDirty(Node& node, const Path& path) {
    Path up = path;
    while (!up.empty() && !(up.size() == 1 && up.front().index < 0)) {
        up = parentPath(up);
        if (Slot* s = node.slot(up))
            s->dirty = true;
    }
}

} // namespace

void Graph::dirty(Node& start, const Path& startPath, bool markSelf) {
    struct Item {
        Node* node;
        Path path;
        bool markSelf;
    };
    std::vector<Item> work;
    work.push_back(Item{&start, startPath, markSelf});
    while (!work.empty()) {
        Item item = std::move(work.back());
        work.pop_back();
        Node& node = *item.node;
        if (!node.usable())
            continue;
        Slot* slot = node.slot(item.path);
        if (!slot)
            continue;
        markAncestorsDirty(node, item.path);
        if (item.markSelf) {
            if (isQuiet(*slot))
                continue;
            setDirtyTree(*slot, true);
        }
        node.addPending(item.path);

        const Attribute* leaf = item.path.back().attr;
        for (const Attribute* target : node.type->dirtyTargets(leaf)) {
            Path targetPath;
            if (node.pathTo(target, targetPath))
                work.push_back(Item{&node, std::move(targetPath), true});
        }
        if (node.dirtyPlugCallbacks || node.user) {
            const ZPlug plug = PlugAccess::make(node, item.path);
            Callbacks::instance().dirtyPlug(node, plug);
            if (node.user) {
                ZPlugArray extra;
                node.user->setDependentsDirty(plug, extra);
                for (const ZPlug& p : extra) {
                    const PlugRef* ref = PlugAccess::get(p);
                    if (ref && ref->node.get() == &node && ref->valid())
                        work.push_back(Item{&node, ref->path, true});
                }
            }
        }
        for (const auto& connection : node.outgoing)
            if (related(connection->src, item.path))
                work.push_back(Item{connection->dstNode, downstreamPath(*connection, item.path), true});
    }
}

void Graph::setCurrentTime(const ZTime& time) {
    m_time = time;
    for (Node* node : std::vector<Node*>(m_timeDrivenNodes)) {
        std::vector<const Attribute*> driven = node->type->timeDriven;
        driven.insert(driven.end(), node->timeDriven.begin(), node->timeDriven.end());
        for (const Attribute* attribute : driven) {
            Path path;
            if (node->pathTo(attribute->outermostArray(), path))
                dirty(*node, path, true);
        }
    }
}

ZStatus Graph::setTimeDriven(Node& node, const Attribute* attribute, bool timeDriven) {
    if (!node.usable() || !node.hasAttribute(attribute))
        return ZStatus::kInvalidParameter;
    auto& list = node.timeDriven;
    auto it = std::find(list.begin(), list.end(), attribute);
    if (timeDriven && it == list.end())
        list.push_back(attribute);
    else if (!timeDriven && it != list.end())
        list.erase(it);
    const bool driven = !list.empty() || !node.type->timeDriven.empty();
    auto entry = std::find(m_timeDrivenNodes.begin(), m_timeDrivenNodes.end(), &node);
    if (driven && entry == m_timeDrivenNodes.end() && node.state == Node::State::Live)
        m_timeDrivenNodes.push_back(&node);
    else if (!driven && entry != m_timeDrivenNodes.end())
        m_timeDrivenNodes.erase(entry);
    touch(true);
    return ZStatus::kSuccess;
}

bool Graph::isTimeDependent(Node& node, const Attribute* attribute) {
    if (m_timeDependenceVersion != m_topology)
        findTimeDependence();
    const auto reached = [&](const Attribute* a) {
        return m_timeDependence.count(PlugKey(&node, a)) != 0;
    };
    for (const Attribute* a = attribute; a; a = a->parent)
        if (reached(a))
            return true;
    bool below = false;
    for (const auto& child : attribute->children)
        child->visit([&](const Attribute* a) { below = below || reached(a); });
    return below;
}

// Everything a change of time reaches, found the way setCurrentTime dirties:
// from the time-driven plugs through affects relations and connections.
void Graph::findTimeDependence() {
    m_timeDependence.clear();
    m_timeDependenceVersion = m_topology;
    std::vector<std::pair<Node*, const Attribute*>> work;
    for (Node* node : m_timeDrivenNodes) {
        for (const Attribute* a : node->type->timeDriven)
            work.emplace_back(node, a);
        for (const Attribute* a : node->timeDriven)
            work.emplace_back(node, a);
    }
    while (!work.empty()) {
        auto [node, attribute] = work.back();
        work.pop_back();
        if (!m_timeDependence.insert(PlugKey(node, attribute)).second)
            continue;
        for (const Attribute* target : node->type->dirtyTargets(attribute))
            work.emplace_back(node, target);
        for (const auto& c : node->outgoing) {
            const Attribute* src = leafAttribute(c->src);
            if (src == attribute || src->isAncestorOf(attribute) || attribute->isAncestorOf(src))
                work.emplace_back(c->dstNode, leafAttribute(c->dst));
        }
    }
}

} // namespace oz
