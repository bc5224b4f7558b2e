#include "data/ValueData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnStringData.h>

using oz::StringData;

ZFnStringData::ZFnStringData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnStringData::create(const ZString& text, ZStatus* status) {
    m_object = oz::createValueData<StringData>(text, status);
    return m_object;
}

ZString ZFnStringData::string(ZStatus* status) const {
    return oz::copyOf<StringData>(m_object, status);
}

ZStatus ZFnStringData::set(const ZString& text) {
    return oz::setValueOf<StringData>(m_object, text);
}
