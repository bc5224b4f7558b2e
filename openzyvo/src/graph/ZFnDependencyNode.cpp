#include "core/StatusOut.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"
#include "graph/PlugParse.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <algorithm>

using oz::Graph;
using oz::Node;
using oz::setStatus;

namespace {

Node* nodeFor(const ZFnDependencyNode& fn, ZStatus* status) {
    Node* node = oz::nodeOf(fn.object());
    const bool ok = node && node->state != Node::State::Finalised;
    setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return ok ? node : nullptr;
}

} // namespace

ZFnDependencyNode::ZFnDependencyNode(const ZObject& node, ZStatus* status) {
    setStatus(status, setObject(node));
}

ZObject ZFnDependencyNode::create(const ZTypeId& typeId, ZStatus* status) {
    return create(typeId, ZString(), status);
}

ZObject ZFnDependencyNode::create(const ZTypeId& typeId, const ZString& name, ZStatus* status) {
    auto type = oz::NodeTypeRegistry::instance().find(typeId);
    if (!type) {
        setStatus(status, ZStatus::kNotFound);
        return ZObject();
    }
    std::shared_ptr<Node> node;
    ZStatus result = Graph::instance().createNode(type, name, node);
    setStatus(status, result);
    if (!result)
        return ZObject();
    m_object = oz::wrapNode(*node);
    return m_object;
}

ZObject ZFnDependencyNode::create(const ZString& typeName, ZStatus* status) {
    return create(typeName, ZString(), status);
}

ZObject ZFnDependencyNode::create(const ZString& typeName, const ZString& name, ZStatus* status) {
    auto type = oz::NodeTypeRegistry::instance().find(typeName);
    if (!type) {
        setStatus(status, ZStatus::kNotFound);
        return ZObject();
    }
    return create(type->id, name, status);
}

ZString ZFnDependencyNode::name(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? node->name : ZString();
}

ZString ZFnDependencyNode::setName(const ZString& name, ZStatus* status) {
    Node* node = nodeFor(*this, status);
    if (!node)
        return ZString();
    ZString result;
    setStatus(status, Graph::instance().rename(*node, name, &result));
    return node->name;
}

ZString ZFnDependencyNode::typeName(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? node->type->name : ZString();
}

ZTypeId ZFnDependencyNode::typeId(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? node->type->id : ZTypeId();
}

ZString ZFnDependencyNode::pluginName(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? node->type->pluginName : ZString();
}

ZString ZFnDependencyNode::classification(const ZString& typeName) {
    auto type = oz::NodeTypeRegistry::instance().find(typeName);
    return type ? type->classification : ZString();
}

ZPlug ZFnDependencyNode::findPlug(const ZString& name, bool, ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    if (!node)
        return ZPlug();
    oz::Path path;
    ZStatus result = oz::parsePlugPath(*node, name.view(), path);
    setStatus(status, result);
    return result ? oz::PlugAccess::make(*node, std::move(path)) : ZPlug();
}

ZPlug ZFnDependencyNode::findPlug(const ZObject& attribute, bool, ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    const oz::Attribute* a = oz::attributeOf(attribute);
    oz::Path path;
    if (!node || !node->pathTo(a, path)) {
        setStatus(status, node ? ZStatus::kNotFound : ZStatus::kInvalidParameter);
        return ZPlug();
    }
    return oz::PlugAccess::make(*node, std::move(path));
}

unsigned int ZFnDependencyNode::attributeCount(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? static_cast<unsigned int>(node->allAttributes().size()) : 0;
}

ZObject ZFnDependencyNode::attribute(unsigned int index, ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    if (!node)
        return ZObject();
    const auto all = node->allAttributes();
    if (index >= all.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    return oz::wrapAttribute(all[index]);
}

ZObject ZFnDependencyNode::attribute(const ZString& name, ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    if (!node)
        return ZObject();
    const oz::Attribute* a = node->findAttribute(name);
    if (!a)
        setStatus(status, ZStatus::kNotFound);
    return oz::wrapAttribute(a);
}

bool ZFnDependencyNode::hasAttribute(const ZString& name, ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node && node->findAttribute(name);
}

ZStatus ZFnDependencyNode::getAffectedAttributes(const ZObject& attribute, ZObjectArray& affected) const {
    affected.clear();
    ZStatus status;
    Node* node = nodeFor(*this, &status);
    const oz::Attribute* a = oz::attributeOf(attribute);
    if (!node || !node->hasAttribute(a))
        return ZStatus::kInvalidParameter;
    auto it = node->type->affects.find(a);
    if (it != node->type->affects.end())
        for (const oz::Attribute* target : it->second)
            affected.append(oz::wrapAttribute(target));
    return ZStatus::kSuccess;
}

ZStatus ZFnDependencyNode::getAffectingAttributes(const ZObject& attribute, ZObjectArray& affecting) const {
    affecting.clear();
    ZStatus status;
    Node* node = nodeFor(*this, &status);
    const oz::Attribute* a = oz::attributeOf(attribute);
    if (!node || !node->hasAttribute(a))
        return ZStatus::kInvalidParameter;
    auto it = node->type->affectedBy.find(a);
    if (it != node->type->affectedBy.end())
        for (const oz::Attribute* source : it->second)
            affecting.append(oz::wrapAttribute(source));
    return ZStatus::kSuccess;
}

ZStatus ZFnDependencyNode::addAttribute(const ZObject& attribute) {
    ZStatus status;
    Node* node = nodeFor(*this, &status);
    if (!node)
        return status;
    return Graph::instance().addDynamicAttribute(*node, oz::sharedAttributeOf(attribute));
}

ZStatus ZFnDependencyNode::removeAttribute(const ZObject& attribute) {
    ZStatus status;
    Node* node = nodeFor(*this, &status);
    if (!node)
        return status;
    return Graph::instance().removeDynamicAttribute(*node, oz::attributeOf(attribute));
}

ZPxNode* ZFnDependencyNode::userNode(ZStatus* status) const {
    Node* node = nodeFor(*this, status);
    return node ? node->user.get() : nullptr;
}

ZStatus ZFnDependencyNode::getConnections(ZPlugArray& plugs) const {
    plugs.clear();
    ZStatus status;
    Node* node = nodeFor(*this, &status);
    if (!node)
        return status;
    std::vector<oz::Path> seen;
    auto add = [&](const oz::Path& path) {
        if (std::find(seen.begin(), seen.end(), path) != seen.end())
            return;
        seen.push_back(path);
        plugs.append(oz::PlugAccess::make(*node, path));
    };
    for (const auto& c : node->incoming)
        add(c->dst);
    for (const auto& c : node->outgoing)
        add(c->src);
    return ZStatus::kSuccess;
}
