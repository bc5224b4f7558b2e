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
    return oz::lengthOf<PointArrayData>(m_object, status);
}

ZPointArray& ZFnPointArrayData::array(ZStatus* status) {
    return oz::valueOf<PointArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnPointArrayData::copyTo(ZPointArray& values) const {
    return oz::copyValueTo<PointArrayData>(m_object, values);
}

ZStatus ZFnPointArrayData::set(const ZPointArray& values) {
    return oz::setValueOf<PointArrayData>(m_object, values);
}
