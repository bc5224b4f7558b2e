#include "graph/HandleAccess.h"
#include "graph/PlugRef.h"
#include "graph/ValueIO.h"

#include <OpenZyvo/ZDataHandle.h>
#include <OpenZyvo/ZPlug.h>

using oz::Attribute;
using oz::Slot;

namespace {

void cloneData(Slot& slot) {
    if (slot.data)
        slot.data = slot.data->clone();
    for (auto& child : slot.children)
        cloneData(child);
    for (auto& [index, element] : slot.elements)
        cloneData(element);
}

} // namespace

bool ZDataHandle::isNumeric() const {
    return m_attr && m_attr->isNumberLike();
}

ZFnData::Type ZDataHandle::type() const {
    if (!m_attr)
        return ZFnData::kInvalid;
    if (m_attr->kind == Attribute::Kind::Typed)
        return m_attr->dataType;
    return m_attr->isNumberLike() ? ZFnData::kNumeric : ZFnData::kInvalid;
}

ZFnNumericData::Type ZDataHandle::numericType() const {
    return m_attr ? m_attr->numericType : ZFnNumericData::kInvalid;
}

ZObject ZDataHandle::attribute() const {
    return oz::wrapAttribute(m_attr);
}

bool ZDataHandle::asBool() const {
    return asDouble() != 0.0;
}
char ZDataHandle::asChar() const {
    return static_cast<char>(asDouble());
}
short ZDataHandle::asShort() const {
    return static_cast<short>(asDouble());
}
int ZDataHandle::asInt() const {
    return static_cast<int>(asDouble());
}
float ZDataHandle::asFloat() const {
    return static_cast<float>(asDouble());
}
double ZDataHandle::asDouble() const {
    return m_slot && m_attr ? oz::component(*m_slot, *m_attr, 0) : 0.0;
}

std::array<short, 2> ZDataHandle::asShort2() const {
    const auto v = asDouble2();
    return {static_cast<short>(v[0]), static_cast<short>(v[1])};
}

std::array<int, 2> ZDataHandle::asInt2() const {
    const auto v = asDouble2();
    return {static_cast<int>(v[0]), static_cast<int>(v[1])};
}

std::array<int, 3> ZDataHandle::asInt3() const {
    const auto v = asDouble3();
    return {static_cast<int>(v[0]), static_cast<int>(v[1]), static_cast<int>(v[2])};
}

std::array<float, 2> ZDataHandle::asFloat2() const {
    const auto v = asDouble2();
    return {static_cast<float>(v[0]), static_cast<float>(v[1])};
}

std::array<float, 3> ZDataHandle::asFloat3() const {
    const auto v = asDouble3();
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

std::array<double, 2> ZDataHandle::asDouble2() const {
    if (!m_slot || !m_attr)
        return {};
    return {oz::component(*m_slot, *m_attr, 0), oz::component(*m_slot, *m_attr, 1)};
}

std::array<double, 3> ZDataHandle::asDouble3() const {
    if (!m_slot || !m_attr)
        return {};
    return {oz::component(*m_slot, *m_attr, 0), oz::component(*m_slot, *m_attr, 1),
            oz::component(*m_slot, *m_attr, 2)};
}

ZVector ZDataHandle::asVector() const {
    const auto v = asDouble3();
    return ZVector(v[0], v[1], v[2]);
}

ZString ZDataHandle::asString() const {
    ZString text;
    if (m_slot && m_attr)
        oz::readString(*m_slot, *m_attr, text);
    return text;
}

ZTime ZDataHandle::asTime() const {
    return ZTime(asDouble(), ZTime::uiUnit());
}
ZDistance ZDataHandle::asDistance() const {
    return ZDistance(asDouble(), ZDistance::kCentimeters);
}
ZAngle ZDataHandle::asAngle() const {
    return ZAngle(asDouble(), ZAngle::kRadians);
}

ZObject ZDataHandle::data() const {
    ZObject object;
    if (m_slot && m_attr)
        oz::readObject(*m_slot, *m_attr, object);
    return object;
}

ZObject ZDataHandle::asMesh() const {
    if (!m_slot || !m_slot->data || m_slot->data->dataType() != ZFnData::kMesh)
        return ZObject();
    return oz::ObjectAccess::wrap(m_slot->data);
}

namespace {

void setComponents(Slot* slot, const Attribute* attribute, std::initializer_list<double> values) {
    if (!slot || !attribute)
        return;
    unsigned int i = 0;
    for (double value : values)
        oz::setComponent(*slot, *attribute, i++, value);
}

} // namespace

void ZDataHandle::set(bool value) {
    setComponents(m_slot, m_attr, {value ? 1.0 : 0.0});
}
void ZDataHandle::set(short value) {
    setComponents(m_slot, m_attr, {double(value)});
}
void ZDataHandle::set(int value) {
    setComponents(m_slot, m_attr, {double(value)});
}
void ZDataHandle::set(float value) {
    setComponents(m_slot, m_attr, {double(value)});
}
void ZDataHandle::set(double value) {
    setComponents(m_slot, m_attr, {value});
}
void ZDataHandle::set(const ZTime& value) {
    set(value.as(ZTime::uiUnit()));
}
void ZDataHandle::set(const ZDistance& value) {
    set(value.as(ZDistance::kCentimeters));
}
void ZDataHandle::set(const ZAngle& value) {
    set(value.as(ZAngle::kRadians));
}
void ZDataHandle::set(const ZVector& value) {
    setComponents(m_slot, m_attr, {value.x, value.y, value.z});
}
void ZDataHandle::set2Short(short a, short b) {
    setComponents(m_slot, m_attr, {double(a), double(b)});
}
void ZDataHandle::set2Int(int a, int b) {
    setComponents(m_slot, m_attr, {double(a), double(b)});
}
void ZDataHandle::set3Int(int a, int b, int c) {
    setComponents(m_slot, m_attr, {double(a), double(b), double(c)});
}
void ZDataHandle::set2Float(float a, float b) {
    setComponents(m_slot, m_attr, {double(a), double(b)});
}
void ZDataHandle::set3Float(float a, float b, float c) {
    setComponents(m_slot, m_attr, {double(a), double(b), double(c)});
}
void ZDataHandle::set2Double(double a, double b) {
    setComponents(m_slot, m_attr, {a, b});
}
void ZDataHandle::set3Double(double a, double b, double c) {
    setComponents(m_slot, m_attr, {a, b, c});
}

void ZDataHandle::setString(const ZString& value) {
    if (m_slot && m_attr)
        oz::writeString(*m_slot, *m_attr, value);
}

ZStatus ZDataHandle::setZObject(const ZObject& value) {
    if (!m_slot || !m_attr)
        return ZStatus::kInvalidParameter;
    return oz::writeObject(*m_slot, *m_attr, value);
}

ZStatus ZDataHandle::copy(const ZDataHandle& other) {
    if (!m_slot || !m_attr || !other.m_slot || !other.m_attr)
        return ZStatus::kInvalidParameter;
    if (m_slot == other.m_slot)
        return ZStatus::kSuccess;
    const bool dirty = m_slot->dirty;
    oz::transferValue(*m_slot, *m_attr, false, *other.m_slot, *other.m_attr, false);
    cloneData(*m_slot);
    m_slot->dirty = dirty;
    return ZStatus::kSuccess;
}

ZDataHandle ZDataHandle::child(const ZObject& attribute) const {
    const Attribute* a = oz::attributeOf(attribute);
    if (!m_slot || !a || a->parent != m_attr || a->indexInParent >= m_slot->children.size())
        return ZDataHandle();
    return oz::HandleAccess::make(&m_slot->children[a->indexInParent], a);
}

ZDataHandle ZDataHandle::child(const ZPlug& plug) const {
    const oz::PlugRef* ref = oz::PlugAccess::get(plug);
    return ref && !ref->path.empty() ? child(oz::wrapAttribute(ref->leaf())) : ZDataHandle();
}

void ZDataHandle::setClean() {
    if (m_slot)
        oz::setDirtyTree(*m_slot, false);
}
