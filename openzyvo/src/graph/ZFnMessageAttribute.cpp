#include "core/StatusOut.h"
#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnMessageAttribute.h>

ZFnMessageAttribute::ZFnMessageAttribute(const ZObject& attribute, ZStatus* status) {
    oz::setStatus(status, setObject(attribute));
}

ZObject ZFnMessageAttribute::create(const ZString& longName, const ZString& shortName, ZStatus* status) {
    std::shared_ptr<oz::Attribute> a;
    m_object = oz::newAttribute(oz::Attribute::Kind::Message, longName, shortName, a, status);
    if (a)
        a->flags.storable = false;
    return m_object;
}
