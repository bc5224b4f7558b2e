#pragma once

#include "data/Data.h"

#include <OpenZyvo/ZFnNumericData.h>
#include <array>

namespace oz {

// The value of a numeric attribute as a data object: a number or a tuple.
class NumericData final : public Data {
public:
    explicit NumericData(ZFnNumericData::Type kind = ZFnNumericData::kInvalid)
        : kind(kind) {}

    ZFn::Type apiType() const override { return ZFn::kNumericData; }
    ZFnData::Type dataType() const override { return ZFnData::kNumeric; }
    std::shared_ptr<Data> clone() const override { return std::make_shared<NumericData>(*this); }

    ZFnNumericData::Type kind;
    std::array<double, 4> values{};
};

} // namespace oz
