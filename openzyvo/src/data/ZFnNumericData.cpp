#include "core/StatusOut.h"
#include "data/NumericData.h"

#include <OpenZyvo/ZFnNumericData.h>

using oz::NumericData;
using oz::ObjectAccess;

namespace {

NumericData* dataOf(const ZFnNumericData& fn) {
    return ObjectAccess::as<NumericData>(fn.object());
}

// The caller's variables are written only when the data holds exactly that
// many components; on failure they keep what they had.
template <typename T, typename... Out> ZStatus get(const ZFnNumericData& fn, Out&... out) {
    const NumericData* data = dataOf(fn);
    if (!data || ZFnNumericData::componentCount(data->kind) != sizeof...(Out))
        return ZStatus::kInvalidParameter;
    std::size_t i = 0;
    ((out = static_cast<T>(data->values[i++])), ...);
    return ZStatus::kSuccess;
}

ZStatus set(const ZFnNumericData& fn, unsigned int count, std::initializer_list<double> in) {
    NumericData* data = dataOf(fn);
    if (!data || ZFnNumericData::componentCount(data->kind) != count)
        return ZStatus::kInvalidParameter;
    std::size_t i = 0;
    for (double value : in)
        data->values[i++] = value;
    return ZStatus::kSuccess;
}

} // namespace

unsigned int ZFnNumericData::componentCount(Type kind) {
    switch (kind) {
    case kInvalid:
    case kLast:
        return 0;
    case k2Short:
    case k2Int:
    case k2Float:
    case k2Double:
        return 2;
    case k3Short:
    case k3Int:
    case k3Float:
    case k3Double:
        return 3;
    case k4Double:
        return 4;
    default:
        return 1;
    }
}

ZFnNumericData::ZFnNumericData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnNumericData::create(Type kind, ZStatus* status) {
    if (componentCount(kind) == 0) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    oz::setStatus(status, ZStatus::kSuccess);
    m_object = ObjectAccess::wrap(std::make_shared<NumericData>(kind));
    return m_object;
}

ZFnNumericData::Type ZFnNumericData::numericType(ZStatus* status) const {
    const NumericData* data = dataOf(*this);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? data->kind : kInvalid;
}

ZStatus ZFnNumericData::getData(double& value) const {
    return get<double>(*this, value);
}
ZStatus ZFnNumericData::getData2Int(int& a, int& b) const {
    return get<int>(*this, a, b);
}
ZStatus ZFnNumericData::getData3Int(int& a, int& b, int& c) const {
    return get<int>(*this, a, b, c);
}
ZStatus ZFnNumericData::getData2Float(float& a, float& b) const {
    return get<float>(*this, a, b);
}
ZStatus ZFnNumericData::getData3Float(float& a, float& b, float& c) const {
    return get<float>(*this, a, b, c);
}
ZStatus ZFnNumericData::getData2Double(double& a, double& b) const {
    return get<double>(*this, a, b);
}
ZStatus ZFnNumericData::getData3Double(double& a, double& b, double& c) const {
    return get<double>(*this, a, b, c);
}
ZStatus ZFnNumericData::getData4Double(double& a, double& b, double& c, double& d) const {
    return get<double>(*this, a, b, c, d);
}

ZStatus ZFnNumericData::setData(double value) {
    return set(*this, 1, {value});
}
ZStatus ZFnNumericData::setData2Int(int a, int b) {
    return set(*this, 2, {double(a), double(b)});
}
ZStatus ZFnNumericData::setData3Int(int a, int b, int c) {
    return set(*this, 3, {double(a), double(b), double(c)});
}
ZStatus ZFnNumericData::setData2Float(float a, float b) {
    return set(*this, 2, {double(a), double(b)});
}
ZStatus ZFnNumericData::setData3Float(float a, float b, float c) {
    return set(*this, 3, {double(a), double(b), double(c)});
}
ZStatus ZFnNumericData::setData2Double(double a, double b) {
    return set(*this, 2, {a, b});
}
ZStatus ZFnNumericData::setData3Double(double a, double b, double c) {
    return set(*this, 3, {a, b, c});
}
ZStatus ZFnNumericData::setData4Double(double a, double b, double c, double d) {
    return set(*this, 4, {a, b, c, d});
}
