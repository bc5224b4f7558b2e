#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>

using oz::Attribute;
using oz::attributeFor;
using oz::setStatus;

ZFnEnumAttribute::ZFnEnumAttribute(const ZObject& attribute, ZStatus* status) {
    setStatus(status, setObject(attribute));
}

ZObject ZFnEnumAttribute::create(const ZString& longName, const ZString& shortName, short defaultValue,
                                 ZStatus* status) {
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Enum, longName, shortName, a, status);
    if (a) {
        a->numericType = ZFnNumericData::kShort;
        a->defaultValue.fill(defaultValue);
    }
    return m_object;
}

ZStatus ZFnEnumAttribute::addField(const ZString& fieldName, short value) {
    Attribute* a = attributeFor(*this);
    if (!a || fieldName.isEmpty())
        return ZStatus::kInvalidParameter;
    for (const auto& field : a->fields)
        if (field.first == fieldName || field.second == value)
            return ZStatus::kInvalidParameter;
    a->fields.emplace_back(fieldName, value);
    return ZStatus::kSuccess;
}

ZString ZFnEnumAttribute::fieldName(short value, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    if (a)
        for (const auto& field : a->fields)
            if (field.second == value)
                return field.first;
    setStatus(status, a ? ZStatus::kNotFound : ZStatus::kInvalidParameter);
    return ZString();
}

short ZFnEnumAttribute::fieldValue(const ZString& fieldName, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    if (a)
        for (const auto& field : a->fields)
            if (field.first == fieldName)
                return field.second;
    setStatus(status, a ? ZStatus::kNotFound : ZStatus::kInvalidParameter);
    return 0;
}

bool ZFnEnumAttribute::hasField(short value, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a && a->hasField(value);
}

ZStatus ZFnEnumAttribute::getFields(ZStringArray& names, ZIntArray& values) const {
    names.clear();
    values.clear();
    const Attribute* a = attributeFor(*this);
    if (!a)
        return ZStatus::kInvalidParameter;
    for (const auto& field : a->fields) {
        names.append(field.first);
        values.append(field.second);
    }
    return ZStatus::kSuccess;
}

ZStatus ZFnEnumAttribute::getMin(short& value) const {
    const Attribute* a = attributeFor(*this);
    if (!a || a->fields.empty())
        return ZStatus::kInvalidParameter;
    value = std::min_element(a->fields.begin(), a->fields.end(), [](const auto& x, const auto& y) {
                return x.second < y.second;
            })->second;
    return ZStatus::kSuccess;
}

ZStatus ZFnEnumAttribute::getMax(short& value) const {
    const Attribute* a = attributeFor(*this);
    if (!a || a->fields.empty())
        return ZStatus::kInvalidParameter;
    value = std::max_element(a->fields.begin(), a->fields.end(), [](const auto& x, const auto& y) {
                return x.second < y.second;
            })->second;
    return ZStatus::kSuccess;
}

ZStatus ZFnEnumAttribute::setDefault(short value) {
    Attribute* a = attributeFor(*this);
    if (!a)
        return ZStatus::kInvalidParameter;
    a->defaultValue.fill(value);
    return ZStatus::kSuccess;
}

ZStatus ZFnEnumAttribute::setDefault(const ZString& fieldName) {
    ZStatus status;
    const short value = fieldValue(fieldName, &status);
    return status ? setDefault(value) : status;
}

short ZFnEnumAttribute::defaultValue(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? static_cast<short>(a->defaultValue[0]) : 0;
}
