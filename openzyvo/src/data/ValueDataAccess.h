#pragma once

#include "core/Object.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <memory>

namespace oz {

// The common body of the function sets over ValueData kinds.

template <class D> ZObject createValueData(typename D::ValueType initial, ZStatus* status) {
    setStatus(status, ZStatus::kSuccess);
    return ObjectAccess::wrap(std::make_shared<D>(std::move(initial)));
}

// The value held by `object`, or `fallback` emptied when the object is not of kind D; the fallback
// lets accessors that return a reference fail without handing out anything shared.
template <class D>
typename D::ValueType& valueOf(const ZObject& object, typename D::ValueType& fallback, ZStatus* status) {
    if (D* data = ObjectAccess::as<D>(object)) {
        setStatus(status, ZStatus::kSuccess);
        return data->value;
    }
    setStatus(status, ZStatus::kInvalidParameter);
    fallback = typename D::ValueType();
    return fallback;
}

// A copy of the value held by `object`, or an empty value when the object is not of kind D.
template <class D> typename D::ValueType copyOf(const ZObject& object, ZStatus* status) {
    const D* data = ObjectAccess::as<D>(object);
    setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? data->value : typename D::ValueType();
}

template <class D> ZStatus copyValueTo(const ZObject& object, typename D::ValueType& out) {
    const D* data = ObjectAccess::as<D>(object);
    if (!data)
        return ZStatus::kInvalidParameter;
    out = data->value;
    return ZStatus::kSuccess;
}

template <class D> unsigned int lengthOf(const ZObject& object, ZStatus* status) {
    const D* data = ObjectAccess::as<D>(object);
    setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? data->value.length() : 0;
}

template <class D> ZStatus setValueOf(const ZObject& object, const typename D::ValueType& value) {
    D* data = ObjectAccess::as<D>(object);
    if (!data)
        return ZStatus::kInvalidParameter;
    data->value = value;
    return ZStatus::kSuccess;
}

} // namespace oz
