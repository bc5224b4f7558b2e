#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnDoubleArrayData.h>

using oz::DoubleArrayData;

ZFnDoubleArrayData::ZFnDoubleArrayData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnDoubleArrayData::create(ZStatus* status) {
    return create(ZDoubleArray(), status);
}

ZObject ZFnDoubleArrayData::create(const ZDoubleArray& values, ZStatus* status) {
    m_object = oz::createValueData<DoubleArrayData>(values, status);
    return m_object;
}

unsigned int ZFnDoubleArrayData::length(ZStatus* status) const {
    return oz::lengthOf<DoubleArrayData>(m_object, status);
}

ZDoubleArray& ZFnDoubleArrayData::array(ZStatus* status) {
    return oz::valueOf<DoubleArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnDoubleArrayData::copyTo(ZDoubleArray& values) const {
    return oz::copyValueTo<DoubleArrayData>(m_object, values);
}

ZStatus ZFnDoubleArrayData::set(const ZDoubleArray& values) {
    return oz::setValueOf<DoubleArrayData>(m_object, values);
}
