#pragma once

#include "data/Data.h"

#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZVectorArray.h>
#include <map>
#include <memory>
#include <string>
#include <variant>

namespace oz {

// Named arrays of mixed kinds, as a particle or point stream carries them ("position",
// "rotation", ...). A std::map keeps every array at a fixed address while others come and go, so
// references handed out for one name survive additions of others.
class ArrayAttrsData final : public Data {
public:
    using Array = std::variant<ZVectorArray, ZDoubleArray, ZIntArray, ZStringArray>;

    ZFn::Type apiType() const override { return ZFn::kArrayAttrsData; }
    ZFnData::Type dataType() const override { return ZFnData::kDynArrayAttrs; }
    std::shared_ptr<Data> clone() const override { return std::make_shared<ArrayAttrsData>(*this); }

    std::map<std::string, Array, std::less<>> arrays;
};

} // namespace oz
