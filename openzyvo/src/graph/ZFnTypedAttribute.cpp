#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnTypedAttribute.h>

using oz::Attribute;
using oz::attributeFor;
using oz::setStatus;

namespace {

// The data of `object` when it can be the default of `attribute`.
bool acceptable(const Attribute& attribute, const ZObject& object, std::shared_ptr<oz::Data>& data) {
    if (object.isNull()) {
        data.reset();
        return true;
    }
    data = std::dynamic_pointer_cast<oz::Data>(oz::ObjectAccess::get(object));
    return data && (attribute.dataType == ZFnData::kAny || data->dataType() == attribute.dataType);
}

} // namespace

ZFnTypedAttribute::ZFnTypedAttribute(const ZObject& attribute, ZStatus* status) {
    setStatus(status, setObject(attribute));
}

ZObject ZFnTypedAttribute::create(const ZString& longName, const ZString& shortName, ZFnData::Type dataType,
                                  const ZObject& defaultData, ZStatus* status) {
    if (dataType <= ZFnData::kInvalid || dataType >= ZFnData::kLast) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    Attribute probe(Attribute::Kind::Typed, longName, shortName);
    probe.dataType = dataType;
    std::shared_ptr<oz::Data> data;
    if (!acceptable(probe, defaultData, data)) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    std::shared_ptr<Attribute> a;
    m_object = oz::newAttribute(Attribute::Kind::Typed, longName, shortName, a, status);
    if (a) {
        a->dataType = dataType;
        a->defaultData = std::move(data);
    }
    return m_object;
}

ZFnData::Type ZFnTypedAttribute::attrType(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? a->dataType : ZFnData::kInvalid;
}

ZStatus ZFnTypedAttribute::setDefault(const ZObject& defaultData) {
    Attribute* a = attributeFor(*this);
    std::shared_ptr<oz::Data> data;
    if (!a || !acceptable(*a, defaultData, data))
        return ZStatus::kInvalidParameter;
    a->defaultData = std::move(data);
    return ZStatus::kSuccess;
}

ZStatus ZFnTypedAttribute::getDefault(ZObject& defaultData) const {
    const Attribute* a = attributeFor(*this);
    if (!a)
        return ZStatus::kInvalidParameter;
    defaultData = a->defaultData ? oz::ObjectAccess::wrap(a->defaultData) : ZObject();
    return ZStatus::kSuccess;
}
