#include "core/StatusOut.h"
#include "graph/AttributeFn.h"

#include <OpenZyvo/ZFnAttribute.h>

using oz::Attribute;
using oz::attributeFor;

namespace {

bool flag(const ZFnAttribute& fn, ZStatus* status, bool Attribute::Flags::*member) {
    const Attribute* a = attributeFor(fn, status);
    return a && a->flags.*member;
}

ZStatus setFlag(const ZFnAttribute& fn, bool Attribute::Flags::*member, bool state) {
    Attribute* a = attributeFor(fn);
    if (!a)
        return ZStatus::kInvalidParameter;
    a->flags.*member = state;
    return ZStatus::kSuccess;
}

} // namespace

ZFnAttribute::ZFnAttribute(const ZObject& attribute, ZStatus* status) {
    oz::setStatus(status, setObject(attribute));
}

ZString ZFnAttribute::name(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? a->longName : ZString();
}

ZString ZFnAttribute::shortName(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? a->shortName : ZString();
}

ZString ZFnAttribute::pathName(bool longName, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    if (!a)
        return ZString();
    ZString path = longName ? a->longName : a->shortName;
    for (const Attribute* p = a->parent; p; p = p->parent)
        path = (longName ? p->longName : p->shortName) + "." + path;
    return path;
}

ZObject ZFnAttribute::parent(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a ? oz::wrapAttribute(a->parent) : ZObject();
}

bool ZFnAttribute::isReadable(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::readable);
}
bool ZFnAttribute::isWritable(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::writable);
}
bool ZFnAttribute::isConnectable(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::connectable);
}
bool ZFnAttribute::isStorable(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::storable);
}
bool ZFnAttribute::isCached(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::cached);
}
bool ZFnAttribute::isKeyable(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::keyable);
}
bool ZFnAttribute::isHidden(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::hidden);
}
bool ZFnAttribute::isArray(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::array);
}
bool ZFnAttribute::indexMatters(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::indexMatters);
}
bool ZFnAttribute::usesArrayDataBuilder(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::usesArrayDataBuilder);
}
bool ZFnAttribute::isChannelBoxFlagSet(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::channelBox);
}
bool ZFnAttribute::isUsedAsColor(ZStatus* s) const {
    return flag(*this, s, &Attribute::Flags::usedAsColor);
}

bool ZFnAttribute::isDynamic(ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a && a->dynamic;
}

bool ZFnAttribute::accepts(ZFnData::Type type, ZStatus* status) const {
    const Attribute* a = attributeFor(*this, status);
    return a && a->kind == Attribute::Kind::Typed && (a->dataType == type || a->dataType == ZFnData::kAny);
}

ZStatus ZFnAttribute::setReadable(bool state) {
    return setFlag(*this, &Attribute::Flags::readable, state);
}
ZStatus ZFnAttribute::setWritable(bool state) {
    return setFlag(*this, &Attribute::Flags::writable, state);
}
ZStatus ZFnAttribute::setConnectable(bool state) {
    return setFlag(*this, &Attribute::Flags::connectable, state);
}
ZStatus ZFnAttribute::setStorable(bool state) {
    return setFlag(*this, &Attribute::Flags::storable, state);
}
ZStatus ZFnAttribute::setCached(bool state) {
    return setFlag(*this, &Attribute::Flags::cached, state);
}
ZStatus ZFnAttribute::setKeyable(bool state) {
    return setFlag(*this, &Attribute::Flags::keyable, state);
}
ZStatus ZFnAttribute::setHidden(bool state) {
    return setFlag(*this, &Attribute::Flags::hidden, state);
}
ZStatus ZFnAttribute::setIndexMatters(bool state) {
    return setFlag(*this, &Attribute::Flags::indexMatters, state);
}
ZStatus ZFnAttribute::setUsesArrayDataBuilder(bool state) {
    return setFlag(*this, &Attribute::Flags::usesArrayDataBuilder, state);
}
ZStatus ZFnAttribute::setChannelBox(bool state) {
    return setFlag(*this, &Attribute::Flags::channelBox, state);
}
ZStatus ZFnAttribute::setUsedAsColor(bool state) {
    return setFlag(*this, &Attribute::Flags::usedAsColor, state);
}

ZStatus ZFnAttribute::setArray(bool state) {
    Attribute* a = attributeFor(*this);
    if (!a || (a->frozen && a->flags.array != state))
        return ZStatus::kInvalidParameter;
    a->flags.array = state;
    return ZStatus::kSuccess;
}
