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
    const auto* data = oz::ObjectAccess::as<StringData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? data->value : ZString();
}

ZStatus ZFnStringData::set(const ZString& text) {
    return oz::setValueOf<StringData>(m_object, text);
}
