#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnPointArrayData.h>

using oz::PointArrayData;

ZFnPointArrayData::ZFnPointArrayData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnPointArrayData::create(ZStatus* status) {
    return create(ZPointArray(), status);
}

ZObject ZFnPointArrayData::create(const ZPointArray& values, ZStatus* status) {
    m_object = oz::createValueData<PointArrayData>(values, status);
    return m_object;
}

unsigned int ZFnPointArrayData::length(ZStatus* status) const {
    const auto* data = oz::ObjectAccess::as<PointArrayData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? data->value.length() : 0;
}

ZPointArray& ZFnPointArrayData::array(ZStatus* status) {
    return oz::valueOf<PointArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnPointArrayData::copyTo(ZPointArray& values) const {
    const auto* data = oz::ObjectAccess::as<PointArrayData>(m_object);
    if (!data)
        return ZStatus::kInvalidParameter;
    values = data->value;
    return ZStatus::kSuccess;
}

ZStatus ZFnPointArrayData::set(const ZPointArray& values) {
    return oz::setValueOf<PointArrayData>(m_object, values);
}
