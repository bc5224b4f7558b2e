#include "graph/Attribute.h"

namespace oz {

Attribute::Attribute(Kind kind, ZString longName, ZString shortName)
    : kind(kind)
    , longName(std::move(longName))
    , shortName(std::move(shortName)) {}

ZFn::Type Attribute::apiType() const {
    switch (kind) {
    case Kind::Numeric:
        return ZFn::kNumericAttribute;
    case Kind::Unit:
        return ZFn::kUnitAttribute;
    case Kind::Enum:
        return ZFn::kEnumAttribute;
    case Kind::Typed:
        return ZFn::kTypedAttribute;
    case Kind::Compound:
        return ZFn::kCompoundAttribute;
    case Kind::Message:
        return ZFn::kMessageAttribute;
    }
    return ZFn::kAttribute;
}

bool Attribute::hasFn(ZFn::Type type) const {
    return type == ZFn::kBase || type == ZFn::kAttribute || type == apiType() ||
           (type == ZFn::kCompoundAttribute && isCompound());
}

unsigned int Attribute::componentCount() const {
    switch (kind) {
    case Kind::Unit:
    case Kind::Enum:
        return 1;
    case Kind::Numeric:
        return children.empty() ? ZFnNumericData::componentCount(numericType) : 0;
    default:
        return 0;
    }
}

bool Attribute::isIntegral() const {
    if (kind == Kind::Enum)
        return true;
    if (kind != Kind::Numeric)
        return false;
    switch (numericType) {
    case ZFnNumericData::kBoolean:
    case ZFnNumericData::kByte:
    case ZFnNumericData::kChar:
    case ZFnNumericData::kShort:
    case ZFnNumericData::k2Short:
    case ZFnNumericData::k3Short:
    case ZFnNumericData::kInt:
    case ZFnNumericData::k2Int:
    case ZFnNumericData::k3Int:
    case ZFnNumericData::kInt64:
    case ZFnNumericData::kAddr:
        return true;
    default:
        return false;
    }
}

bool Attribute::isFloat() const {
    return kind == Kind::Numeric &&
           (numericType == ZFnNumericData::kFloat || numericType == ZFnNumericData::k2Float ||
            numericType == ZFnNumericData::k3Float);
}

bool Attribute::hasField(short value) const {
    for (const auto& field : fields)
        if (field.second == value)
            return true;
    return false;
}

const Attribute* Attribute::root() const {
    const Attribute* a = this;
    while (a->parent)
        a = a->parent;
    return a;
}

const Attribute* Attribute::outermostArray() const {
    const Attribute* found = flags.array ? this : nullptr;
    for (const Attribute* a = parent; a; a = a->parent)
        if (a->flags.array)
            found = a;
    return found ? found : this;
}

bool Attribute::hasArrayAncestor() const {
    for (const Attribute* a = parent; a; a = a->parent)
        if (a->flags.array)
            return true;
    return false;
}

bool Attribute::isAncestorOf(const Attribute* other) const {
    for (const Attribute* a = other ? other->parent : nullptr; a; a = a->parent)
        if (a == this)
            return true;
    return false;
}

void Attribute::setFrozen() {
    frozen = true;
    for (auto& child : children)
        child->setFrozen();
}

void Attribute::setDynamic() {
    dynamic = true;
    for (auto& child : children)
        child->setDynamic();
}

Attribute* attributeOf(const ZObject& object) {
    const auto& p = ObjectAccess::get(object);
    if (!p || !p->hasFn(ZFn::kAttribute))
        return nullptr;
    return static_cast<Attribute*>(p.get());
}

std::shared_ptr<Attribute> sharedAttributeOf(const ZObject& object) {
    const auto& p = ObjectAccess::get(object);
    if (!p || !p->hasFn(ZFn::kAttribute))
        return nullptr;
    return std::static_pointer_cast<Attribute>(p);
}

ZObject wrapAttribute(const Attribute* attribute) {
    if (!attribute)
        return ZObject();
    return ObjectAccess::wrap(std::const_pointer_cast<Object>(attribute->shared_from_this()));
}

} // namespace oz
