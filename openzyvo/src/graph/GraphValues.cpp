#include "graph/Callbacks.h"
#include "core/EvaluationScope.h"
#include "graph/Graph.h"
#include "graph/PlugParse.h"

#include <algorithm>

namespace oz {

ZStatus Graph::setValue(Node& node, const Path& path,
                        const std::function<ZStatus(Slot&, const Attribute&)>& write) {
    if (!node.usable() || path.empty() || !isFullySpecified(path))
        return ZStatus::kInvalidParameter;
    for (const auto& c : node.incoming)
        if (related(c->dst, path))
            return ZStatus::kInvalidParameter;
    Slot* slot = node.slot(path);
    if (!slot)
        return ZStatus::kInvalidParameter;
    ZStatus status = write(*slot, *path.back().attr);
    if (!status)
        return status;
    setDirtyTree(*slot, false);
    touch(false);
    dirty(node, path, false);

    Callbacks& callbacks = Callbacks::instance();
    if (node.attributeChangedCallbacks)
        callbacks.attributeChanged(node, ZNodeMessage::kAttributeSet, PlugAccess::make(node, path), ZPlug());
    std::vector<std::shared_ptr<Connection>> told;
    for (const auto& c : node.outgoing)
        if (c->dstNode->attributeChangedCallbacks && related(c->src, path))
            told.push_back(c);
    for (const auto& c : told)
        callbacks.attributeChanged(*c->dstNode,
                                   ZNodeMessage::kOtherPlugSet | ZNodeMessage::kIncomingDirection,
                                   PlugAccess::make(*c->dstNode, c->dst), PlugAccess::make(node, c->src));
    return ZStatus::kSuccess;
}

ZStatus Graph::removeElement(Node& node, const Path& element) {
    if (!node.usable() || !isElementPath(element))
        return ZStatus::kInvalidParameter;
    for (const auto& c : node.incoming)
        if (related(c->dst, element))
            return ZStatus::kInvalidParameter;
    for (const auto& c : node.outgoing)
        if (related(c->src, element))
            return ZStatus::kInvalidParameter;
    Path array = parentPath(element);
    Slot* slot = node.resolve(node.normal, array, false);
    if (!slot || !slot->elements.erase(static_cast<unsigned int>(element.back().index)))
        return ZStatus::kNotFound;
    touch(true);
    dirty(node, array, false);
    Callbacks::instance().attributeChanged(node, ZNodeMessage::kAttributeArrayRemoved,
                                           PlugAccess::make(node, element), ZPlug());
    return ZStatus::kSuccess;
}

ZStatus Graph::addDynamicAttribute(Node& node, const std::shared_ptr<Attribute>& attribute) {
    if (!node.usable() || !attribute || attribute->parent || attribute->attachedToNode ||
        node.type->hasAttribute(attribute.get()))
        return ZStatus::kInvalidParameter;
    if (attribute->longName.isEmpty())
        return ZStatus::kInvalidParameter;
    bool clash = node.type->clashes(*attribute);
    attribute->visit([&](const Attribute* a) {
        for (const auto& root : node.dynamicAttrs)
            if (root)
                root->visit([&](const Attribute* b) {
                    if (a->longName == b->longName || a->longName == b->shortName ||
                        (!a->shortName.isEmpty() &&
                         (a->shortName == b->longName || a->shortName == b->shortName)))
                        clash = true;
                });
    });
    if (clash)
        return ZStatus::kInvalidParameter;
    attribute->setFrozen();
    attribute->attachedToNode = true;
    attribute->setDynamic();
    node.dynamicAttrs.push_back(attribute);
    node.normal.roots.resize(node.rootCount() - 1);
    node.normal.roots.push_back(std::make_unique<Slot>(makeSlot(*attribute, false)));
    touch(true);
    Callbacks::instance().attributeChanged(node, ZNodeMessage::kAttributeAdded,
                                           PlugAccess::make(node, attribute.get()), ZPlug());
    return ZStatus::kSuccess;
}

ZStatus Graph::removeDynamicAttribute(Node& node, const Attribute* attribute) {
    if (!node.usable() || !attribute || attribute->parent)
        return ZStatus::kInvalidParameter;
    if (const ZStatus refused = refuseDuringEvaluation("remove attributes"); !refused)
        return refused;
    auto it = std::find_if(node.dynamicAttrs.begin(), node.dynamicAttrs.end(),
                           [&](const std::shared_ptr<Attribute>& a) { return a.get() == attribute; });
    if (it == node.dynamicAttrs.end())
        return ZStatus::kNotFound;
    Path path;
    node.pathTo(attribute, path);
    std::vector<std::shared_ptr<Connection>> connections;
    for (const auto& c : node.incoming)
        if (c->dst.front().attr == attribute)
            connections.push_back(c);
    for (const auto& c : node.outgoing)
        if (c->src.front().attr == attribute)
            connections.push_back(c);
    for (const auto& c : connections)
        disconnect(c);
    Callbacks::instance().attributeChanged(node, ZNodeMessage::kAttributeRemoved,
                                           PlugAccess::make(node, path), ZPlug());
    dirty(node, path, true);
    std::shared_ptr<Attribute> keep = *it;
    const std::size_t slot =
        node.type->roots.size() + static_cast<std::size_t>(it - node.dynamicAttrs.begin());
    it->reset();
    if (slot < node.normal.roots.size())
        node.normal.roots[slot].reset();
    std::erase_if(node.pending, [&](const Path& p) { return p.front().attr == attribute; });
    std::erase(node.timeDriven, attribute);
    keep->attachedToNode = false;
    touch(true);
    return ZStatus::kSuccess;
}

ZStatus Graph::findPlug(const ZString& fullName, ZPlug& plug) const {
    const std::string_view text = fullName.view();
    const std::size_t dot = text.find('.');
    if (dot == std::string_view::npos)
        return ZStatus::kInvalidParameter;
    Node* node = findNode(ZString(text.substr(0, dot)));
    if (!node)
        return ZStatus::kNotFound;
    Path path;
    ZStatus status = parsePlugPath(*node, text.substr(dot + 1), path);
    if (!status)
        return status;
    plug = PlugAccess::make(*node, std::move(path));
    return ZStatus::kSuccess;
}

} // namespace oz
