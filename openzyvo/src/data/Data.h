#pragma once

#include "core/Object.h"

#include <OpenZyvo/ZFnData.h>
#include <memory>

namespace oz {

// A data value held by a plug: arrays, strings, meshes, component lists...
// Values are shared between plugs by pointer; whoever edits a value it did
// not create takes a clone first.
class Data : public Object {
public:
    virtual ZFnData::Type dataType() const = 0;
    virtual std::shared_ptr<Data> clone() const = 0;
    bool hasFn(ZFn::Type type) const override {
        return type == ZFn::kBase || type == ZFn::kData || type == apiType();
    }
};

} // namespace oz
