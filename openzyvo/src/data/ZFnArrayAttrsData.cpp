#include "data/ArrayAttrsData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnArrayAttrsData.h>
#include <type_traits>
#include <variant>

using oz::ArrayAttrsData;

// checkArrayExist maps the variant's alternatives onto the kinds after kInvalidArray.
static_assert(
    std::is_same_v<std::variant_alternative_t<ZFnArrayAttrsData::kVectorArray - 1, ArrayAttrsData::Array>,
                   ZVectorArray>);
static_assert(
    std::is_same_v<std::variant_alternative_t<ZFnArrayAttrsData::kStringArray - 1, ArrayAttrsData::Array>,
                   ZStringArray>);

namespace {

template <class A> A& namedArray(const ZObject& object, const ZString& name, A& fallback, ZStatus* status) {
    auto* data = oz::ObjectAccess::as<ArrayAttrsData>(object);
    if (data) {
        auto [it, added] = data->arrays.try_emplace(name.asStdString(), A());
        if (A* array = std::get_if<A>(&it->second)) {
            oz::setStatus(status, ZStatus::kSuccess);
            return *array;
        }
    }
    oz::setStatus(status, ZStatus::kInvalidParameter);
    fallback = A();
    return fallback;
}

template <class A> A existingArray(const ZObject& object, const ZString& name, ZStatus* status) {
    const auto* data = oz::ObjectAccess::as<ArrayAttrsData>(object);
    if (!data) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return A();
    }
    const auto it = data->arrays.find(name.view());
    if (it == data->arrays.end()) {
        oz::setStatus(status, ZStatus::kNotFound);
        return A();
    }
    const A* array = std::get_if<A>(&it->second);
    oz::setStatus(status, array ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return array ? *array : A();
}

} // namespace

ZFnArrayAttrsData::ZFnArrayAttrsData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnArrayAttrsData::create(ZStatus* status) {
    m_object = oz::ObjectAccess::wrap(std::make_shared<ArrayAttrsData>());
    oz::setStatus(status, ZStatus::kSuccess);
    return m_object;
}

ZVectorArray& ZFnArrayAttrsData::vectorArray(const ZString& name, ZStatus* status) {
    return namedArray(m_object, name, m_vectorFallback, status);
}

ZDoubleArray& ZFnArrayAttrsData::doubleArray(const ZString& name, ZStatus* status) {
    return namedArray(m_object, name, m_doubleFallback, status);
}

ZIntArray& ZFnArrayAttrsData::intArray(const ZString& name, ZStatus* status) {
    return namedArray(m_object, name, m_intFallback, status);
}

ZStringArray& ZFnArrayAttrsData::stringArray(const ZString& name, ZStatus* status) {
    return namedArray(m_object, name, m_stringFallback, status);
}

ZVectorArray ZFnArrayAttrsData::getVectorData(const ZString& name, ZStatus* status) const {
    return existingArray<ZVectorArray>(m_object, name, status);
}

ZDoubleArray ZFnArrayAttrsData::getDoubleData(const ZString& name, ZStatus* status) const {
    return existingArray<ZDoubleArray>(m_object, name, status);
}

ZIntArray ZFnArrayAttrsData::getIntData(const ZString& name, ZStatus* status) const {
    return existingArray<ZIntArray>(m_object, name, status);
}

ZStringArray ZFnArrayAttrsData::getStringData(const ZString& name, ZStatus* status) const {
    return existingArray<ZStringArray>(m_object, name, status);
}

bool ZFnArrayAttrsData::checkArrayExist(const ZString& name, Type& arrayType, ZStatus* status) const {
    arrayType = kInvalidArray;
    const auto* data = oz::ObjectAccess::as<ArrayAttrsData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (!data)
        return false;
    const auto it = data->arrays.find(name.view());
    if (it == data->arrays.end())
        return false;
    arrayType = static_cast<Type>(it->second.index() + 1);
    return true;
}

ZStringArray ZFnArrayAttrsData::list(ZStatus* status) const {
    ZStringArray names;
    const auto* data = oz::ObjectAccess::as<ArrayAttrsData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    if (data) {
        for (const auto& entry : data->arrays)
            names.append(ZString(entry.first));
    }
    return names;
}

unsigned int ZFnArrayAttrsData::count(ZStatus* status) const {
    const auto* data = oz::ObjectAccess::as<ArrayAttrsData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? static_cast<unsigned int>(data->arrays.size()) : 0;
}

ZStatus ZFnArrayAttrsData::removeArray(const ZString& name) {
    auto* data = oz::ObjectAccess::as<ArrayAttrsData>(m_object);
    if (!data)
        return ZStatus::kInvalidParameter;
    const auto it = data->arrays.find(name.view());
    if (it == data->arrays.end())
        return ZStatus::kNotFound;
    data->arrays.erase(it);
    return ZStatus::kSuccess;
}

ZStatus ZFnArrayAttrsData::clear() {
    auto* data = oz::ObjectAccess::as<ArrayAttrsData>(m_object);
    if (!data)
        return ZStatus::kInvalidParameter;
    data->arrays.clear();
    return ZStatus::kSuccess;
}
