#include "graph/Node.h"

#include <OpenZyvo/ZPxNode.h>
#include <algorithm>

namespace oz {

Node::Node(std::shared_ptr<NodeType> nodeType)
    : type(std::move(nodeType)) {
    normal.roots.reserve(type->roots.size());
    for (const auto& attribute : type->roots)
        normal.roots.push_back(std::make_unique<Slot>(makeSlot(*attribute, false)));
}

Node::~Node() {
    // The user node goes first: its destructor may still remove the callbacks it
    // installed, and those live in this node's list.
    user.reset();
}

unsigned int Node::rootCount() const {
    return static_cast<unsigned int>(type->roots.size() + dynamicAttrs.size());
}

const std::shared_ptr<Attribute>& Node::rootAttribute(unsigned int slot) const {
    const std::size_t statics = type->roots.size();
    return slot < statics ? type->roots[slot] : dynamicAttrs[slot - statics];
}

int Node::rootSlotOf(const Attribute* root) const {
    Attribute::TypeLookup& lookup = root->lookup;
    if (lookup.type == type.get() && lookup.rootSlot < type->roots.size() &&
        type->roots[lookup.rootSlot].get() == root)
        return static_cast<int>(lookup.rootSlot);
    auto it = type->rootIndex.find(root);
    if (it != type->rootIndex.end()) {
        lookup.type = type.get();
        lookup.rootSlot = it->second;
        return static_cast<int>(it->second);
    }
    for (std::size_t i = 0; i < dynamicAttrs.size(); ++i)
        if (dynamicAttrs[i].get() == root)
            return static_cast<int>(type->roots.size() + i);
    return -1;
}

bool Node::hasAttribute(const Attribute* attribute) const {
    return attribute && rootSlotOf(attribute->root()) >= 0;
}

const Attribute* Node::findAttribute(const ZString& name) const {
    if (const Attribute* a = type->findAttribute(name))
        return a;
    const Attribute* found = nullptr;
    for (const auto& root : dynamicAttrs)
        if (root && !found)
            root->visit([&](const Attribute* a) {
                if (!found && (a->longName == name || a->shortName == name))
                    found = a;
            });
    return found;
}

bool Node::pathTo(const Attribute* attribute, Path& path) const {
    path.clear();
    if (!attribute)
        return false;
    const int rootSlot = rootSlotOf(attribute->root());
    if (rootSlot < 0)
        return false;
    for (const Attribute* a = attribute; a; a = a->parent)
        path.push_back(PathEntry{a, a->parent ? a->indexInParent : static_cast<unsigned int>(rootSlot), -1});
    std::reverse(path.begin(), path.end());
    return true;
}

std::vector<const Attribute*> Node::allAttributes() const {
    std::vector<const Attribute*> out = type->all;
    for (const auto& root : dynamicAttrs)
        if (root)
            root->visit([&](const Attribute* a) { out.push_back(a); });
    return out;
}

Slot* Node::resolve(NodeStore& store, const Path& path, bool create) {
    if (path.empty())
        return nullptr;
    const unsigned int roots = rootCount();
    unsigned int rootSlot = path.front().slot;
    if (rootSlot >= roots || rootAttribute(rootSlot).get() != path.front().attr) {
        const int found = rootSlotOf(path.front().attr);
        if (found < 0)
            return nullptr;
        rootSlot = static_cast<unsigned int>(found);
    }
    if (store.roots.size() < roots)
        store.roots.resize(roots);
    auto& root = store.roots[rootSlot];
    if (&store == &normal) {
        if (!root)
            root = std::make_unique<Slot>(makeSlot(*rootAttribute(rootSlot), false));
    } else {
        if (store.stamps.size() < roots)
            store.stamps.resize(roots, 0);
        if (!root || store.stamps[rootSlot] != store.stamp) {
            const Slot* source = normal.roots[rootSlot].get();
            if (!root)
                root = std::make_unique<Slot>();
            *root = source ? *source : makeSlot(*rootAttribute(rootSlot), false);
            setDirtyTree(*root, true);
            store.stamps[rootSlot] = store.stamp;
        }
    }
    Slot* slot = root.get();
    for (std::size_t i = 0; i < path.size(); ++i) {
        const PathEntry& step = path[i];
        if (i > 0) {
            if (step.attr->parent != path[i - 1].attr || step.slot >= slot->children.size())
                return nullptr;
            slot = &slot->children[step.slot];
        }
        if (step.index >= 0) {
            if (!step.attr->flags.array)
                return nullptr;
            auto it = slot->elements.find(static_cast<unsigned int>(step.index));
            if (it == slot->elements.end()) {
                if (!create)
                    return nullptr;
                it = slot->elements.emplace(static_cast<unsigned int>(step.index), makeSlot(*step.attr, true))
                         .first;
            }
            slot = &it->second;
        }
    }
    return slot;
}

void Node::addPending(const Path& path) {
    // Past a few dozen plugs (arrays set element by element) the dirty set
    // keeps whole top-level plugs, so it stays small and cheap to search.
    constexpr std::size_t kDetailed = 64;
    Path entry = path;
    if (pending.size() >= kDetailed) {
        while (entry.size() > 1)
            entry.pop_back();
        entry.front().index = -1;
        std::erase_if(pending, [&](const Path& p) { return covers(entry, p); });
    }
    for (const Path& p : pending)
        if (covers(p, entry))
            return;
    pending.push_back(entry);
}

Node* nodeOf(const ZObject& object) {
    const auto& p = ObjectAccess::get(object);
    if (!p || !p->hasFn(ZFn::kDependencyNode))
        return nullptr;
    return static_cast<Node*>(p.get());
}

ZObject wrapNode(Node& node) {
    return ObjectAccess::wrap(node.shared_from_this());
}

} // namespace oz
