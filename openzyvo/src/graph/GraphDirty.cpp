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

bool inFamily(const std::vector<const Attribute*>& list, const Attribute* a) {
    for (const Attribute* b : list)
        if (b == a || b->isAncestorOf(a) || a->isAncestorOf(b))
            return true;
    return false;
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
    if (m_timeDependenceVersion != m_topology) {
        m_timeDependence.clear();
        m_timeDependenceVersion = m_topology;
    }
    return timeDependent(node, attribute);
}

bool Graph::timeDependent(Node& node, const Attribute* attribute) {
    const auto key = std::make_pair(static_cast<const Node*>(&node), attribute);
    if (auto it = m_timeDependence.find(key); it != m_timeDependence.end())
        return it->second;
    // Provisional answer while this plug's sources are visited, so cycles end.
    m_timeDependence.emplace(key, false);
    bool result = inFamily(node.type->timeDriven, attribute) || inFamily(node.timeDriven, attribute);
    for (std::size_t i = 0; !result && i < node.incoming.size(); ++i) {
        const Connection& c = *node.incoming[i];
        const Attribute* dst = leafAttribute(c.dst);
        if ((dst == attribute || dst->isAncestorOf(attribute) || attribute->isAncestorOf(dst)) &&
            timeDependent(*c.srcNode, leafAttribute(c.src)))
            result = true;
    }
    if (!result)
        for (const Attribute* source : node.type->affectingFamily(attribute))
            if (timeDependent(node, source)) {
                result = true;
                break;
            }
    m_timeDependence[key] = result;
    return result;
}

} // namespace oz
