#include "core/StatusOut.h"
#include "core/Wildcard.h"
#include "graph/Graph.h"
#include "nodes/DagHierarchy.h"
#include "nodes/SelectionItems.h"

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>
#include <string_view>

using oz::Node;
using oz::SelectionItem;

namespace oz {

bool SelectionItem::isLive() const {
    const Node* n = nodeOf(node);
    if (!n || n->state != Node::State::Live)
        return false;
    return !isPlug() || !plug.isNull();
}

void SelectionItems::prune() {
    std::erase_if(items, [](const SelectionItem& item) { return !item.isLive(); });
}

void SelectionItems::append(const SelectionItem& item) {
    if (std::find(items.begin(), items.end(), item) == items.end())
        items.push_back(item);
}

} // namespace oz

namespace {

Node* liveNode(const ZObject& object) {
    Node* node = oz::nodeOf(object);
    return node && node->state == Node::State::Live ? node : nullptr;
}

// The node a node name or a full DAG path names.
Node* namedNode(std::string_view name) {
    if (!name.empty() && name.front() == '|')
        return oz::nodes::findByFullPath(ZString(name));
    return oz::Graph::instance().findNode(ZString(name));
}

} // namespace

ZSelectionList::ZSelectionList()
    : m_items(std::make_unique<oz::SelectionItems>()) {}

ZSelectionList::~ZSelectionList() = default;

ZSelectionList::ZSelectionList(const ZSelectionList& other)
    : m_items(std::make_unique<oz::SelectionItems>(*other.m_items)) {}

ZSelectionList& ZSelectionList::operator=(const ZSelectionList& other) {
    *m_items = *other.m_items;
    return *this;
}

ZStatus ZSelectionList::add(const ZString& pattern) {
    const std::string_view text = pattern.view();
    if (text.empty())
        return ZStatus::kInvalidParameter;
    const std::size_t dot = text.find('.');
    if (dot != std::string_view::npos) {
        Node* node = namedNode(text.substr(0, dot));
        if (!node)
            return ZStatus::kNotFound;
        ZPlug plug;
        const ZStatus status = oz::Graph::instance().findPlug(node->name + ZString(text.substr(dot)), plug);
        return status ? add(plug) : status;
    }
    if (!oz::hasWildcards(text)) {
        Node* node = namedNode(text);
        return node ? add(oz::wrapNode(*node)) : ZStatus::kNotFound;
    }
    bool found = false;
    for (const auto& node : oz::Graph::instance().nodes())
        if (node->state == Node::State::Live && oz::matchesWildcard(text, node->name.view())) {
            m_items->append(SelectionItem{oz::wrapNode(*node), ZPlug()});
            found = true;
        }
    return found ? ZStatus::kSuccess : ZStatus::kNotFound;
}

ZStatus ZSelectionList::add(const ZObject& node) {
    if (!liveNode(node))
        return ZStatus::kInvalidParameter;
    m_items->append(SelectionItem{node, ZPlug()});
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::add(const ZDagPath& path) {
    ZStatus status;
    const ZObject node = path.node(&status);
    return status ? add(node) : status;
}

ZStatus ZSelectionList::add(const ZPlug& plug) {
    if (plug.isNull())
        return ZStatus::kInvalidParameter;
    const ZObject node = plug.node();
    if (!liveNode(node))
        return ZStatus::kInvalidParameter;
    m_items->append(SelectionItem{node, plug});
    return ZStatus::kSuccess;
}

unsigned int ZSelectionList::length(ZStatus* status) const {
    m_items->prune();
    oz::setStatus(status, ZStatus::kSuccess);
    return static_cast<unsigned int>(m_items->items.size());
}

bool ZSelectionList::isEmpty(ZStatus* status) const {
    return length(status) == 0;
}

bool ZSelectionList::hasItem(const ZObject& node, ZStatus* status) const {
    m_items->prune();
    oz::setStatus(status, ZStatus::kSuccess);
    const SelectionItem wanted{node, ZPlug()};
    return std::find(m_items->items.begin(), m_items->items.end(), wanted) != m_items->items.end();
}

ZStatus ZSelectionList::getDependNode(unsigned int index, ZObject& node) const {
    m_items->prune();
    if (index >= m_items->items.size())
        return ZStatus::kInvalidParameter;
    node = m_items->items[index].node;
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::getDagPath(unsigned int index, ZDagPath& path) const {
    ZObject node;
    const ZStatus status = getDependNode(index, node);
    return status ? ZDagPath::getAPathTo(node, path) : status;
}

ZStatus ZSelectionList::getPlug(unsigned int index, ZPlug& plug) const {
    m_items->prune();
    if (index >= m_items->items.size() || !m_items->items[index].isPlug())
        return ZStatus::kInvalidParameter;
    plug = m_items->items[index].plug;
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::getSelectionStrings(ZStringArray& strings) const {
    m_items->prune();
    strings.clear();
    for (const SelectionItem& item : m_items->items) {
        if (item.isPlug()) {
            strings.append(item.plug.name());
            continue;
        }
        Node* node = liveNode(item.node);
        strings.append(oz::nodes::isDagNode(*node) ? oz::nodes::fullPathName(*node) : node->name);
    }
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::remove(unsigned int index) {
    m_items->prune();
    if (index >= m_items->items.size())
        return ZStatus::kInvalidParameter;
    m_items->items.erase(m_items->items.begin() + index);
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::clear() {
    m_items->items.clear();
    return ZStatus::kSuccess;
}

ZStatus ZSelectionList::merge(const ZSelectionList& other) {
    other.m_items->prune();
    for (const SelectionItem& item : other.m_items->items)
        m_items->append(item);
    return ZStatus::kSuccess;
}
