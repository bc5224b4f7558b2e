#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnIntArrayData.h>

using oz::IntArrayData;

ZFnIntArrayData::ZFnIntArrayData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnIntArrayData::create(ZStatus* status) {
    return create(ZIntArray(), status);
}

ZObject ZFnIntArrayData::create(const ZIntArray& values, ZStatus* status) {
    m_object = oz::createValueData<IntArrayData>(values, status);
    return m_object;
}

unsigned int ZFnIntArrayData::length(ZStatus* status) const {
    return oz::lengthOf<IntArrayData>(m_object, status);
}

ZIntArray& ZFnIntArrayData::array(ZStatus* status) {
    return oz::valueOf<IntArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnIntArrayData::copyTo(ZIntArray& values) const {
    return oz::copyValueTo<IntArrayData>(m_object, values);
}

ZStatus ZFnIntArrayData::set(const ZIntArray& values) {
    return oz::setValueOf<IntArrayData>(m_object, values);
}
