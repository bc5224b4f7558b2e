#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnUnitAttribute.h>

using oz::Attribute;
using oz::attributeFor;
using oz::setStatus;

namespace {

ZStatus setRange(const ZFnUnitAttribute& fn, Attribute::Range Attribute::*which, double value) {
    Attribute* a = attributeFor(fn);
    if (!a)
        return ZStatus::kInvalidParameter;
    (a->*which).set = true;
    (a->*which).value.fill(value);
    return ZStatus::kSuccess;
}

bool hasRange(const ZFnUnitAttribute& fn, ZStatus* status, Attribute::Range Attribute::*which) {
    const Attribute* a = attributeFor(fn, status);
    return a && (a->*which).set;
}

ZStatus getRange(const ZFnUnitAttribute& fn, Attribute::Range Attribute::*which, double& value) {
    const Attribute* a = attributeFor(fn);
    if (!a || !(a->*which).set)
        return ZStatus::kInvalidParameter;
    value = (a->*which).value[0];
    return ZStatus::kSuccess;
}

} // namespace

ZFnUnitAttribute::ZFnUnitAttribute(const ZObject& attribute, ZStatus* status) {
    setStatus(status, setObject(attribute));
}

ZObject ZFnUnitAttribute::create(const ZString& longName, const ZString& shortName, Type unitType,
                                 double defaultValue, ZStatus* status) {
    if (unitType != kAngle && unitType != kDistance && unitType != kTime) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Unit, longName, shortName, a, status);
    if (a) {
        a->unitType = unitType;
        a->numericType = ZFnNumericData::kDouble;
        a->defaultValue.fill(defaultValue);
    }
    return m_object;
}

ZObject ZFnUnitAttribute::create(const ZString& longName, const ZString& shortName, const ZTime& defaultValue,
                                 ZStatus* status) {
    return create(longName, shortName, kTime, defaultValue.as(ZTime::uiUnit()), status);
}

ZObject ZFnUnitAttribute::create(const ZString& longName, const ZString& shortName,
                                 const ZDistance& defaultValue, ZStatus* status) {
    return create(longName, shortName, kDistance, defaultValue.as(ZDistance::kCentimeters), status);
}

ZObject ZFnUnitAttribute::create(const ZString& longName, const ZString& shortName,
                                 const ZAngle& defaultValue, ZStatus* status) {
    return create(longName, shortName, kAngle, defaultValue.as(ZAngle::kRadians), status);
}

ZFnUnitAttribute::Type ZFnUnitAttribute::unitType(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? a->unitType : kInvalid;
}

ZStatus ZFnUnitAttribute::setDefault(double value) {
    Attribute* a = attributeFor(*this);
    if (!a)
        return ZStatus::kInvalidParameter;
    a->defaultValue.fill(value);
    return ZStatus::kSuccess;
}

ZStatus ZFnUnitAttribute::setDefault(const ZTime& value) {
    return setDefault(value.as(ZTime::uiUnit()));
}
ZStatus ZFnUnitAttribute::setDefault(const ZDistance& value) {
    return setDefault(value.as(ZDistance::kCentimeters));
}
ZStatus ZFnUnitAttribute::setDefault(const ZAngle& value) {
    return setDefault(value.as(ZAngle::kRadians));
}

ZStatus ZFnUnitAttribute::getDefault(double& value) const {
    const Attribute* a = attributeFor(*this);
    if (!a)
        return ZStatus::kInvalidParameter;
    value = a->defaultValue[0];
    return ZStatus::kSuccess;
}

ZStatus ZFnUnitAttribute::setMin(double value) {
    return setRange(*this, &Attribute::min, value);
}
ZStatus ZFnUnitAttribute::setMax(double value) {
    return setRange(*this, &Attribute::max, value);
}
ZStatus ZFnUnitAttribute::setSoftMin(double value) {
    return setRange(*this, &Attribute::softMin, value);
}
ZStatus ZFnUnitAttribute::setSoftMax(double value) {
    return setRange(*this, &Attribute::softMax, value);
}
bool ZFnUnitAttribute::hasMin(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::min);
}
bool ZFnUnitAttribute::hasMax(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::max);
}
bool ZFnUnitAttribute::hasSoftMin(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::softMin);
}
bool ZFnUnitAttribute::hasSoftMax(ZStatus* status) const {
    return hasRange(*this, status, &Attribute::softMax);
}
ZStatus ZFnUnitAttribute::getMin(double& value) const {
    return getRange(*this, &Attribute::min, value);
}
ZStatus ZFnUnitAttribute::getMax(double& value) const {
    return getRange(*this, &Attribute::max, value);
}
ZStatus ZFnUnitAttribute::getSoftMin(double& value) const {
    return getRange(*this, &Attribute::softMin, value);
}
ZStatus ZFnUnitAttribute::getSoftMax(double& value) const {
    return getRange(*this, &Attribute::softMax, value);
}
