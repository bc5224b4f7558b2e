#pragma once

#include "data/Data.h"

#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZVectorArray.h>
#include <memory>
#include <utility>

namespace oz {

// A data value that is one plain value: a string or one typed array. The function sets hand out
// references into `value`, so edits through them change this data.
template <class Value, ZFn::Type Api, ZFnData::Type Kind> class ValueData final : public Data {
public:
    using ValueType = Value;

    ValueData() = default;
    explicit ValueData(Value initial)
        : value(std::move(initial)) {}

    ZFn::Type apiType() const override { return Api; }
    ZFnData::Type dataType() const override { return Kind; }
    std::shared_ptr<Data> clone() const override { return std::make_shared<ValueData>(value); }

    Value value;
};

using DoubleArrayData = ValueData<ZDoubleArray, ZFn::kDoubleArrayData, ZFnData::kDoubleArray>;
using IntArrayData = ValueData<ZIntArray, ZFn::kIntArrayData, ZFnData::kIntArray>;
using PointArrayData = ValueData<ZPointArray, ZFn::kPointArrayData, ZFnData::kPointArray>;
using VectorArrayData = ValueData<ZVectorArray, ZFn::kVectorArrayData, ZFnData::kVectorArray>;
using StringData = ValueData<ZString, ZFn::kStringData, ZFnData::kString>;
using StringArrayData = ValueData<ZStringArray, ZFn::kStringArrayData, ZFnData::kStringArray>;

} // namespace oz
