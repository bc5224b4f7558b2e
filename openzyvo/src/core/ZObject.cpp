#include "core/Object.h"

#include <OpenZyvo/ZObject.h>

const ZObject ZObject::kNullObj;

ZFn::Type ZObject::apiType() const {
    return m_object ? m_object->apiType() : ZFn::kInvalid;
}

bool ZObject::hasFn(ZFn::Type type) const {
    return m_object && m_object->hasFn(type);
}
