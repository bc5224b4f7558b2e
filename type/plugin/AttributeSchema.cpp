#include "plugin/AttributeSchema.h"

#include "plugin/ApiError.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMessageAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZFnStringData.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZPxNode.h>
#include <string>
#include <vector>

namespace type {

namespace {

ZStatus applyFlags(const ZObject& attribute, const AttributeSchema::Flags& flags) {
    ZFnAttribute fn(attribute);
    const std::pair<const std::optional<bool>&, ZStatus (ZFnAttribute::*)(bool)> setters[] = {
        {flags.readable, &ZFnAttribute::setReadable}, {flags.writable, &ZFnAttribute::setWritable},
        {flags.storable, &ZFnAttribute::setStorable}, {flags.keyable, &ZFnAttribute::setKeyable},
        {flags.hidden, &ZFnAttribute::setHidden},     {flags.array, &ZFnAttribute::setArray},
    };
    for (const auto& [flag, setter] : setters)
        if (flag)
            if (const ZStatus status = (fn.*setter)(*flag); !status)
                return status;
    return ZStatus::kSuccess;
}

ZStatus applyRange(ZFnNumericAttribute& fn, const AttributeSchema::Range& range) {
    const std::pair<const std::optional<double>&, ZStatus (ZFnNumericAttribute::*)(double)> setters[] = {
        {range.min, &ZFnNumericAttribute::setMin},
        {range.max, &ZFnNumericAttribute::setMax},
        {range.softMin, &ZFnNumericAttribute::setSoftMin},
        {range.softMax, &ZFnNumericAttribute::setSoftMax},
    };
    for (const auto& [limit, setter] : setters)
        if (limit)
            if (const ZStatus status = (fn.*setter)(*limit); !status)
                return status;
    return ZStatus::kSuccess;
}

ZObject emptyData(ZFnData::Type type, const char* text, ZStatus& status) {
    status = ZStatus::kSuccess;
    switch (type) {
    case ZFnData::kString:
        return ZFnStringData().create(text, &status);
    case ZFnData::kDoubleArray:
        return ZFnDoubleArrayData().create(&status);
    case ZFnData::kIntArray:
        return ZFnIntArrayData().create(&status);
    case ZFnData::kVectorArray:
        return ZFnVectorArrayData().create(&status);
    case ZFnData::kStringArray:
        return ZFnStringArrayData().create(&status);
    default:
        return ZObject::kNullObj;
    }
}

ZFnNumericData::Type elementOf(ZFnNumericData::Type tuple) {
    switch (tuple) {
    case ZFnNumericData::k2Short:
    case ZFnNumericData::k3Short:
        return ZFnNumericData::kShort;
    case ZFnNumericData::k2Int:
    case ZFnNumericData::k3Int:
        return ZFnNumericData::kInt;
    case ZFnNumericData::k2Float:
    case ZFnNumericData::k3Float:
        return ZFnNumericData::kFloat;
    case ZFnNumericData::k2Double:
    case ZFnNumericData::k3Double:
        return ZFnNumericData::kDouble;
    default:
        return ZFnNumericData::kInvalid;
    }
}

} // namespace

bool AttributeSchema::failed(ZStatus status, Where where) {
    if (status)
        return false;
    m_status = reportApiError(status, m_unit, where);
    return true;
}

ZObject AttributeSchema::finish(const ZObject& attribute, ZStatus status, const Flags& flags, Where where) {
    if (status)
        status = applyFlags(attribute, flags);
    return failed(status, where) ? ZObject::kNullObj : attribute;
}

ZObject AttributeSchema::typed(const Names& names, ZFnData::Type type, const Flags& flags,
                               const char* defaultText, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    const ZObject defaultData = emptyData(type, defaultText, status);
    ZObject attribute;
    if (status)
        attribute = ZFnTypedAttribute().create(names.longName, names.shortName, type, defaultData, &status);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::numeric(const Names& names, ZFnNumericData::Type kind, double defaultValue,
                                 const Flags& flags, const Range& range, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    ZFnNumericAttribute fn;
    const ZObject attribute = fn.create(names.longName, names.shortName, kind, defaultValue, &status);
    if (status)
        status = applyRange(fn, range);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::numeric(const Names& names, ZFnNumericData::Type kind,
                                 std::initializer_list<double> defaults, const Flags& flags, Where where) {
    if (!m_status)
        return {};
    const std::vector<double> values(defaults);
    const ZFnNumericData::Type element = elementOf(kind);
    if (values.size() != ZFnNumericData::componentCount(kind) || values.size() < 2 || values.size() > 3 ||
        element == ZFnNumericData::kInvalid) {
        failed(ZStatus::kInvalidParameter, where);
        return {};
    }
    // Children named <name>0, <name>1... let tools and scenes reach each
    // number on its own.
    ZStatus status;
    ZFnNumericAttribute fn;
    ZObject children[3];
    for (std::size_t i = 0; i < values.size() && status; ++i) {
        const std::string suffix = std::to_string(i);
        children[i] = fn.create(ZString(names.longName) + suffix.c_str(),
                                ZString(names.shortName) + suffix.c_str(), element, values[i], &status);
    }
    ZObject attribute;
    if (status)
        attribute =
            fn.create(names.longName, names.shortName, children[0], children[1], children[2], &status);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::unit(const Names& names, ZFnUnitAttribute::Type type, double defaultValue,
                              const Flags& flags, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    const ZObject attribute =
        ZFnUnitAttribute().create(names.longName, names.shortName, type, defaultValue, &status);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::enumeration(const Names& names, short defaultValue,
                                     std::initializer_list<std::pair<const char*, short>> fields,
                                     const Flags& flags, Where where) {
    return enumeration(names, defaultValue, std::span(fields.begin(), fields.size()), flags, where);
}

ZObject AttributeSchema::enumeration(const Names& names, short defaultValue,
                                     std::span<const std::pair<const char*, short>> fields,
                                     const Flags& flags, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    ZFnEnumAttribute fn;
    const ZObject attribute = fn.create(names.longName, names.shortName, defaultValue, &status);
    for (const auto& [name, value] : fields)
        if (status)
            status = fn.addField(name, value);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::curve(const Names& names, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    const ZObject attribute = ZCurveAttribute::createCurveAttr(names.longName, names.shortName, &status);
    return finish(attribute, status, {}, where);
}

ZObject AttributeSchema::message(const Names& names, const Flags& flags, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    const ZObject attribute = ZFnMessageAttribute().create(names.longName, names.shortName, &status);
    return finish(attribute, status, flags, where);
}

ZObject AttributeSchema::compound(const Names& names, std::initializer_list<ZObject> children,
                                  const Flags& flags, Where where) {
    if (!m_status)
        return {};
    ZStatus status;
    ZFnCompoundAttribute fn;
    const ZObject attribute = fn.create(names.longName, names.shortName, &status);
    for (const ZObject& child : children)
        if (status)
            status = fn.addChild(child);
    return finish(attribute, status, flags, where);
}

void AttributeSchema::add(const ZObject& attribute, Where where) {
    if (m_status)
        failed(ZPxNode::addAttribute(attribute), where);
}

void AttributeSchema::affects(std::initializer_list<ZObject> inputs, std::initializer_list<ZObject> outputs,
                              Where where) {
    for (const ZObject& input : inputs)
        for (const ZObject& output : outputs)
            if (!m_status || failed(ZPxNode::attributeAffects(input, output), where))
                return;
}

} // namespace type
