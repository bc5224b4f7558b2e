#include "graph/ValueIO.h"

#include "data/NumericData.h"
#include "data/ValueData.h"

#include <algorithm>
#include <cmath>

namespace oz {

double normaliseNumber(const Attribute& attribute, double value) {
    if (attribute.kind == Attribute::Kind::Numeric && attribute.numericType == ZFnNumericData::kBoolean)
        return value != 0.0 ? 1.0 : 0.0;
    if (attribute.isIntegral())
        return std::isfinite(value) ? std::round(value) : 0.0;
    if (attribute.isFloat())
        return static_cast<double>(static_cast<float>(value));
    return value;
}

ZStatus readNumber(const Slot& slot, const Attribute& attribute, double& value) {
    if (!attribute.isNumberLike() || attribute.componentCount() != 1)
        return ZStatus::kInvalidParameter;
    value = slot.num[0];
    return ZStatus::kSuccess;
}

ZStatus writeNumber(Slot& slot, const Attribute& attribute, double value, bool checked) {
    if (!attribute.isNumberLike() || attribute.componentCount() != 1)
        return ZStatus::kInvalidParameter;
    if (checked) {
        if (attribute.kind == Attribute::Kind::Enum) {
            const double rounded = std::round(value);
            if (rounded != value || rounded < -32768.0 || rounded > 32767.0 ||
                !attribute.hasField(static_cast<short>(rounded)))
                return ZStatus::kInvalidParameter;
        }
        if (attribute.min.set)
            value = std::max(value, attribute.min.value[0]);
        if (attribute.max.set)
            value = std::min(value, attribute.max.value[0]);
    }
    slot.num[0] = normaliseNumber(attribute, value);
    return ZStatus::kSuccess;
}

ZStatus readString(const Slot& slot, const Attribute& attribute, ZString& value) {
    if (attribute.kind != Attribute::Kind::Typed)
        return ZStatus::kInvalidParameter;
    if (!slot.data) {
        value.clear();
        return attribute.dataType == ZFnData::kString || attribute.dataType == ZFnData::kAny
                   ? ZStatus::kSuccess
                   : ZStatus::kInvalidParameter;
    }
    const auto* text = dynamic_cast<const StringData*>(slot.data.get());
    if (!text)
        return ZStatus::kInvalidParameter;
    value = text->value;
    return ZStatus::kSuccess;
}

ZStatus writeString(Slot& slot, const Attribute& attribute, const ZString& value) {
    if (attribute.kind != Attribute::Kind::Typed ||
        (attribute.dataType != ZFnData::kString && attribute.dataType != ZFnData::kAny))
        return ZStatus::kInvalidParameter;
    slot.data = std::make_shared<StringData>(value);
    return ZStatus::kSuccess;
}

double component(const Slot& slot, const Attribute& attribute, unsigned int i) {
    if (!attribute.children.empty())
        return i < slot.children.size() ? slot.children[i].num[0] : 0.0;
    return i < slot.num.size() ? slot.num[i] : 0.0;
}

void setComponent(Slot& slot, const Attribute& attribute, unsigned int i, double value) {
    if (!attribute.children.empty()) {
        if (i < slot.children.size())
            slot.children[i].num[0] = normaliseNumber(*attribute.children[i], value);
    } else if (i < slot.num.size()) {
        slot.num[i] = normaliseNumber(attribute, value);
    }
}

namespace {

unsigned int tupleWidth(const Attribute& attribute) {
    if (attribute.kind != Attribute::Kind::Numeric)
        return 0;
    if (!attribute.children.empty()) {
        for (const auto& child : attribute.children)
            if (!child->isNumberLike() || child->flags.array || !child->children.empty())
                return 0;
        return static_cast<unsigned int>(attribute.children.size());
    }
    return attribute.componentCount();
}

} // namespace

ZStatus readObject(const Slot& slot, const Attribute& attribute, ZObject& value) {
    if (attribute.kind == Attribute::Kind::Typed) {
        value = slot.data ? ObjectAccess::wrap(slot.data) : ZObject();
        return ZStatus::kSuccess;
    }
    const unsigned int width = tupleWidth(attribute);
    if (!width)
        return ZStatus::kInvalidParameter;
    auto data = std::make_shared<NumericData>(attribute.numericType);
    for (unsigned int i = 0; i < width && i < data->values.size(); ++i)
        data->values[i] = component(slot, attribute, i);
    value = ObjectAccess::wrap(data);
    return ZStatus::kSuccess;
}

ZStatus writeObject(Slot& slot, const Attribute& attribute, const ZObject& value) {
    if (attribute.kind == Attribute::Kind::Typed) {
        if (value.isNull()) {
            slot.data.reset();
            return ZStatus::kSuccess;
        }
        auto data = std::dynamic_pointer_cast<Data>(ObjectAccess::get(value));
        if (!data)
            return ZStatus::kInvalidParameter;
        if (attribute.dataType != ZFnData::kAny && data->dataType() != attribute.dataType)
            return ZStatus::kInvalidParameter;
        slot.data = std::move(data);
        return ZStatus::kSuccess;
    }
    const unsigned int width = tupleWidth(attribute);
    const auto* numbers = ObjectAccess::as<NumericData>(value);
    if (!width || !numbers || ZFnNumericData::componentCount(numbers->kind) != width)
        return ZStatus::kInvalidParameter;
    for (unsigned int i = 0; i < width; ++i)
        setComponent(slot, attribute, i, numbers->values[i]);
    return ZStatus::kSuccess;
}

} // namespace oz
