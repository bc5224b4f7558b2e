#include "graph/AttributeFn.h"
#include "graph/ValueIO.h"

#include <OpenZyvo/ZFnNumericAttribute.h>

using oz::Attribute;
using oz::attributeFor;
using oz::setStatus;

namespace {

ZFnNumericData::Type tupleOf(ZFnNumericData::Type kind, std::size_t count) {
    const bool three = count == 3;
    switch (kind) {
    case ZFnNumericData::kShort:
        return three ? ZFnNumericData::k3Short : ZFnNumericData::k2Short;
    case ZFnNumericData::kInt:
        return three ? ZFnNumericData::k3Int : ZFnNumericData::k2Int;
    case ZFnNumericData::kFloat:
        return three ? ZFnNumericData::k3Float : ZFnNumericData::k2Float;
    default:
        return three ? ZFnNumericData::k3Double : ZFnNumericData::k2Double;
    }
}

// Applies `f` to the attribute's own limits, and to its children's when it is
// a compound of numbers (child i gets value i).
template <typename F> ZStatus onValues(const ZFnNumericAttribute& fn, F&& f) {
    Attribute* a = attributeFor(fn);
    if (!a)
        return ZStatus::kInvalidParameter;
    f(*a, nullptr);
    for (std::size_t i = 0; i < a->children.size(); ++i)
        f(*a->children[i], &i);
    return ZStatus::kSuccess;
}

ZStatus setRange(const ZFnNumericAttribute& fn, Attribute::Range Attribute::*which,
                 std::initializer_list<double> v) {
    const std::vector<double> values(v);
    return onValues(fn, [&](Attribute& a, const std::size_t* child) {
        Attribute::Range& range = a.*which;
        range.set = true;
        if (child) {
            range.value[0] = *child < values.size() ? values[*child] : values.back();
        } else {
            for (std::size_t i = 0; i < range.value.size(); ++i)
                range.value[i] = i < values.size() ? values[i] : values.back();
        }
    });
}

bool hasRange(const ZFnNumericAttribute& fn, ZStatus* status, Attribute::Range Attribute::*which) {
    const Attribute* a = attributeFor(fn, status);
    return a && (a->*which).set;
}

ZStatus getRange(const ZFnNumericAttribute& fn, Attribute::Range Attribute::*which,
                 std::initializer_list<double*> out) {
    const Attribute* a = attributeFor(fn);
    if (!a || !(a->*which).set)
        return ZStatus::kInvalidParameter;
    std::size_t i = 0;
    for (double* value : out)
        *value = (a->*which).value[i++];
    return ZStatus::kSuccess;
}

} // namespace

ZFnNumericAttribute::ZFnNumericAttribute(const ZObject& attribute, ZStatus* status) {
    setStatus(status, setObject(attribute));
}

ZObject ZFnNumericAttribute::create(const ZString& longName, const ZString& shortName,
                                    ZFnNumericData::Type kind, double defaultValue, ZStatus* status) {
    if (ZFnNumericData::componentCount(kind) == 0) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Numeric, longName, shortName, a, status);
    if (a) {
        a->numericType = kind;
        a->defaultValue.fill(defaultValue);
        for (double& value : a->defaultValue)
            value = oz::normaliseNumber(*a, value);
    }
    return m_object;
}

ZObject ZFnNumericAttribute::create(const ZString& longName, const ZString& shortName, const ZObject& child1,
                                    const ZObject& child2, const ZObject& child3, ZStatus* status) {
    std::vector<std::shared_ptr<Attribute>> children;
    for (const ZObject* object : {&child1, &child2, &child3}) {
        if (object == &child3 && object->isNull())
            break;
        auto child = oz::sharedAttributeOf(*object);
        if (!child || !child->isNumberLike() || child->parent || child->frozen || child->flags.array ||
            !child->children.empty()) {
            setStatus(status, ZStatus::kInvalidParameter);
            return ZObject();
        }
        children.push_back(child);
    }
    if (children[0] == children[1] ||
        (children.size() == 3 && (children[2] == children[0] || children[2] == children[1]))) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Numeric, longName, shortName, a, status);
    if (!a)
        return m_object;
    a->numericType = tupleOf(children[0]->numericType, children.size());
    for (auto& child : children) {
        child->parent = a.get();
        child->indexInParent = static_cast<unsigned int>(a->children.size());
        a->children.push_back(child);
    }
    return m_object;
}

ZObject ZFnNumericAttribute::createPoint(const ZString& longName, const ZString& shortName, ZStatus* status) {
    const ZString shortBase = shortName.isEmpty() ? longName : shortName;
    ZFnNumericAttribute fn;
    ZObject x = fn.create(longName + "X", shortBase + "x", ZFnNumericData::kDouble);
    ZObject y = fn.create(longName + "Y", shortBase + "y", ZFnNumericData::kDouble);
    ZObject z = fn.create(longName + "Z", shortBase + "z", ZFnNumericData::kDouble);
    return create(longName, shortName, x, y, z, status);
}

ZObject ZFnNumericAttribute::createColor(const ZString& longName, const ZString& shortName, ZStatus* status) {
    const ZString shortBase = shortName.isEmpty() ? longName : shortName;
    ZFnNumericAttribute fn;
    ZObject r = fn.create(longName + "R", shortBase + "r", ZFnNumericData::kFloat);
    ZObject g = fn.create(longName + "G", shortBase + "g", ZFnNumericData::kFloat);
    ZObject b = fn.create(longName + "B", shortBase + "b", ZFnNumericData::kFloat);
    ZObject color = create(longName, shortName, r, g, b, status);
    setUsedAsColor(true);
    return color;
}

ZFnNumericData::Type ZFnNumericAttribute::unitType(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? a->numericType : ZFnNumericData::kInvalid;
}

ZStatus ZFnNumericAttribute::setDefault(double a) {
    return setDefault(a, a, a);
}
ZStatus ZFnNumericAttribute::setDefault(double a, double b) {
    return setDefault(a, b, b);
}

ZStatus ZFnNumericAttribute::setDefault(double a, double b, double c) {
    const double values[3] = {a, b, c};
    return onValues(*this, [&](Attribute& attribute, const std::size_t* child) {
        if (child) {
            attribute.defaultValue[0] = oz::normaliseNumber(attribute, values[*child < 3 ? *child : 2]);
            return;
        }
        for (std::size_t i = 0; i < attribute.defaultValue.size(); ++i)
            attribute.defaultValue[i] = oz::normaliseNumber(attribute, values[i < 3 ? i : 2]);
    });
}

ZStatus ZFnNumericAttribute::getDefault(double& a) const {
    double b, c;
    return getDefault(a, b, c);
}

ZStatus ZFnNumericAttribute::getDefault(double& a, double& b) const {
    double c;
    return getDefault(a, b, c);
}

ZStatus ZFnNumericAttribute::getDefault(double& a, double& b, double& c) const {
    const Attribute* attribute = attributeFor(*this);
    if (!attribute)
        return ZStatus::kInvalidParameter;
    double* out[3] = {&a, &b, &c};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!attribute->children.empty())
            *out[i] = attribute->children[i < attribute->children.size() ? i : 0]->defaultValue[0];
        else
            *out[i] = attribute->defaultValue[i];
    }
    return ZStatus::kSuccess;
}

ZStatus ZFnNumericAttribute::setMin(double a) {
    return setRange(*this, &Attribute::min, {a});
}
ZStatus ZFnNumericAttribute::setMin(double a, double b) {
    return setRange(*this, &Attribute::min, {a, b});
}
ZStatus ZFnNumericAttribute::setMin(double a, double b, double c) {
    return setRange(*this, &Attribute::min, {a, b, c});
}
ZStatus ZFnNumericAttribute::setMax(double a) {
    return setRange(*this, &Attribute::max, {a});
}
ZStatus ZFnNumericAttribute::setMax(double a, double b) {
    return setRange(*this, &Attribute::max, {a, b});
}
ZStatus ZFnNumericAttribute::setMax(double a, double b, double c) {
    return setRange(*this, &Attribute::max, {a, b, c});
}
ZStatus ZFnNumericAttribute::setSoftMin(double a) {
    return setRange(*this, &Attribute::softMin, {a});
}
ZStatus ZFnNumericAttribute::setSoftMax(double a) {
    return setRange(*this, &Attribute::softMax, {a});
}

bool ZFnNumericAttribute::hasMin(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::min);
}
bool ZFnNumericAttribute::hasMax(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::max);
}
bool ZFnNumericAttribute::hasSoftMin(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::softMin);
}
bool ZFnNumericAttribute::hasSoftMax(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::softMax);
}

ZStatus ZFnNumericAttribute::getMin(double& a) const {
    return getRange(*this, &Attribute::min, {&a});
}
ZStatus ZFnNumericAttribute::getMin(double& a, double& b, double& c) const {
    return getRange(*this, &Attribute::min, {&a, &b, &c});
}
ZStatus ZFnNumericAttribute::getMax(double& a) const {
    return getRange(*this, &Attribute::max, {&a});
}
ZStatus ZFnNumericAttribute::getMax(double& a, double& b, double& c) const {
    return getRange(*this, &Attribute::max, {&a, &b, &c});
}
ZStatus ZFnNumericAttribute::getSoftMin(double& a) const {
    return getRange(*this, &Attribute::softMin, {&a});
}
ZStatus ZFnNumericAttribute::getSoftMax(double& a) const {
    return getRange(*this, &Attribute::softMax, {&a});
}
