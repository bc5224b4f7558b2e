#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <algorithm>

using oz::Attribute;
using oz::attributeFor;
using oz::setStatus;

ZFnCompoundAttribute::ZFnCompoundAttribute(const ZObject& attribute, ZStatus* status) {
    setStatus(status, setObject(attribute));
}

ZObject ZFnCompoundAttribute::create(const ZString& longName, const ZString& shortName, ZStatus* status) {
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Compound, longName, shortName, a, status);
    return m_object;
}

ZStatus ZFnCompoundAttribute::addChild(const ZObject& child) {
    Attribute* parent = attributeFor(*this);
    auto a = oz::sharedAttributeOf(child);
    if (!parent || !a || parent->frozen || a->parent || a->frozen || a->attachedToNode || a.get() == parent ||
        a->isAncestorOf(parent))
        return ZStatus::kInvalidParameter;
    for (const auto& sibling : parent->children)
        if (sibling->longName == a->longName || sibling->shortName == a->shortName)
            return ZStatus::kInvalidParameter;
    a->parent = parent;
    a->indexInParent = static_cast<unsigned int>(parent->children.size());
    parent->children.push_back(std::move(a));
    return ZStatus::kSuccess;
}

ZStatus ZFnCompoundAttribute::removeChild(const ZObject& child) {
    Attribute* parent = attributeFor(*this);
    Attribute* a = oz::attributeOf(child);
    if (!parent || !a || parent->frozen || a->parent != parent)
        return ZStatus::kInvalidParameter;
    auto& children = parent->children;
    children.erase(children.begin() + a->indexInParent);
    for (std::size_t i = 0; i < children.size(); ++i)
        children[i]->indexInParent = static_cast<unsigned int>(i);
    a->parent = nullptr;
    return ZStatus::kSuccess;
}

unsigned int ZFnCompoundAttribute::numChildren(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? static_cast<unsigned int>(a->children.size()) : 0;
}

ZObject ZFnCompoundAttribute::child(unsigned int index, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    if (!a || index >= a->children.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    return oz::ObjectAccess::wrap(a->children[index]);
}
