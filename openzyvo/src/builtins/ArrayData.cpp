#include "builtins/ArrayData.h"

#include "data/ValueData.h"
#include "graph/Attribute.h"

namespace oz::builtins {

bool holdsArrayData(const Attribute& attribute) {
    if (attribute.kind != Attribute::Kind::Typed)
        return false;
    switch (attribute.dataType) {
    case ZFnData::kStringArray:
    case ZFnData::kDoubleArray:
    case ZFnData::kFloatArray:
    case ZFnData::kIntArray:
    case ZFnData::kPointArray:
    case ZFnData::kVectorArray:
        return true;
    default:
        return false;
    }
}

std::optional<unsigned int> arrayDataLength(const Data& data) {
    if (const auto* doubles = dynamic_cast<const DoubleArrayData*>(&data))
        return doubles->value.length();
    if (const auto* ints = dynamic_cast<const IntArrayData*>(&data))
        return ints->value.length();
    if (const auto* points = dynamic_cast<const PointArrayData*>(&data))
        return points->value.length();
    if (const auto* vectors = dynamic_cast<const VectorArrayData*>(&data))
        return vectors->value.length();
    if (const auto* strings = dynamic_cast<const StringArrayData*>(&data))
        return strings->value.length();
    return std::nullopt;
}

} // namespace oz::builtins
