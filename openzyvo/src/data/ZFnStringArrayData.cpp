#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnStringArrayData.h>

using oz::StringArrayData;

ZFnStringArrayData::ZFnStringArrayData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnStringArrayData::create(ZStatus* status) {
    return create(ZStringArray(), status);
}

ZObject ZFnStringArrayData::create(const ZStringArray& values, ZStatus* status) {
    m_object = oz::createValueData<StringArrayData>(values, status);
    return m_object;
}

unsigned int ZFnStringArrayData::length(ZStatus* status) const {
    return oz::lengthOf<StringArrayData>(m_object, status);
}

ZStringArray& ZFnStringArrayData::array(ZStatus* status) {
    return oz::valueOf<StringArrayData>(m_object, m_fallback, status);
}

ZStatus ZFnStringArrayData::copyTo(ZStringArray& values) const {
    return oz::copyValueTo<StringArrayData>(m_object, values);
}

ZStatus ZFnStringArrayData::set(const ZStringArray& values) {
    return oz::setValueOf<StringArrayData>(m_object, values);
}
