#include "scene/PendingCompounds.h"

#include "graph/Node.h"

#include <algorithm>

namespace oz::scene {

namespace {

bool uses(const PendingAttribute& pending, const std::string& name) {
    if (pending.declaration.longName == name || pending.declaration.shortName == name)
        return true;
    return std::any_of(pending.children.begin(), pending.children.end(),
                       [&](const PendingAttribute& child) { return uses(child, name); });
}

} // namespace

PendingCompounds& PendingCompounds::instance() {
    static PendingCompounds pending;
    return pending;
}

PendingCompounds::Entry* PendingCompounds::find(const Node& node) {
    std::erase_if(m_entries, [](const Entry& entry) { return entry.node.expired(); });
    for (Entry& entry : m_entries)
        if (entry.node.lock().get() == &node)
            return &entry;
    return nullptr;
}

const PendingCompounds::Entry* PendingCompounds::find(const Node& node) const {
    for (const Entry& entry : m_entries)
        if (entry.node.lock().get() == &node)
            return &entry;
    return nullptr;
}

std::vector<PendingAttribute> PendingCompounds::openOn(const Node& node) const {
    const Entry* entry = find(node);
    return entry ? entry->open : std::vector<PendingAttribute>();
}

void PendingCompounds::setOpenOn(const Node& node, std::vector<PendingAttribute> open) {
    Entry* entry = find(node);
    if (!entry) {
        if (open.empty())
            return;
        m_entries.push_back(
            {std::const_pointer_cast<Node>(std::static_pointer_cast<const Node>(node.shared_from_this())),
             {}});
        entry = &m_entries.back();
    }
    entry->open = std::move(open);
    if (entry->open.empty())
        std::erase_if(m_entries, [&](const Entry& e) { return &e == entry; });
}

bool PendingCompounds::declares(const Node& node, const std::string& name) const {
    const Entry* entry = find(node);
    return entry && std::any_of(entry->open.begin(), entry->open.end(),
                                [&](const PendingAttribute& pending) { return uses(pending, name); });
}

bool PendingCompounds::declare(const Node& node, const AttributeDeclaration& declaration,
                               std::optional<PendingAttribute>& complete, std::string& error) {
    std::vector<PendingAttribute> open = openOn(node);
    auto openNamed = [&](const std::string& name) {
        return std::find_if(open.begin(), open.end(),
                            [&](const PendingAttribute& p) { return p.declaration.longName == name; });
    };
    if (!declaration.parent.empty() && openNamed(declaration.parent) == open.end()) {
        error = "'" + declaration.parent + "' is no compound waiting for children";
        return false;
    }
    PendingAttribute done{declaration, {}};
    if (childrenNeeded(declaration) > 0) {
        open.push_back(std::move(done));
        setOpenOn(node, std::move(open));
        return true;
    }
    // A complete declaration joins its parent, which may be complete in
    // turn, up to a top-level attribute.
    while (!done.declaration.parent.empty()) {
        auto parent = openNamed(done.declaration.parent);
        parent->children.push_back(std::move(done));
        if (static_cast<int>(parent->children.size()) < childrenNeeded(parent->declaration)) {
            setOpenOn(node, std::move(open));
            return true;
        }
        done = std::move(*parent);
        open.erase(parent);
    }
    setOpenOn(node, std::move(open));
    complete = std::move(done);
    return true;
}

std::vector<std::pair<std::string, std::string>> PendingCompounds::unfinished() const {
    std::vector<std::pair<std::string, std::string>> out;
    for (const Entry& entry : m_entries)
        if (const auto node = entry.node.lock())
            for (const PendingAttribute& pending : entry.open)
                out.emplace_back(node->name.asStdString(), pending.declaration.longName);
    return out;
}

void PendingCompounds::clear() {
    m_entries.clear();
}

bool buildPending(const PendingAttribute& pending, ZObject& attribute, std::string& error) {
    std::vector<ZObject> children;
    for (const PendingAttribute& child : pending.children) {
        ZObject made;
        if (!buildPending(child, made, error))
            return false;
        children.push_back(made);
    }
    if (!buildAttribute(pending.declaration, children, attribute, error)) {
        error = "'" + pending.declaration.longName + "': " + error;
        return false;
    }
    return true;
}

} // namespace oz::scene
