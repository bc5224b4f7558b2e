#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnVectorArrayData.h>

using oz::VectorArrayData;

ZFnVectorArrayData::ZFnVectorArrayData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnVectorArrayData::create(ZStatus* status) {
    return create(ZVectorArray(), status);
}

ZObject ZFnVectorArrayData::create(const ZVectorArray& values, ZStatus* status) {
    m_object = oz::createValueData<VectorArrayData>(values, status);
    return m_object;
}

unsigned int ZFnVectorArrayData::length(ZStatus* status) const {
    return oz::lengthOf<VectorArrayData>(m_object, status);
}

ZVectorArray& ZFnVectorArrayData::array(ZStatus* status) {
    return oz::valueOf<VectorArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnVectorArrayData::copyTo(ZVectorArray& values) const {
    return oz::copyValueTo<VectorArrayData>(m_object, values);
}

ZStatus ZFnVectorArrayData::set(const ZVectorArray& values) {
    return oz::setValueOf<VectorArrayData>(m_object, values);
}
