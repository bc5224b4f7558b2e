#pragma once

#include "data/Component.h"
#include "data/Data.h"

#include <memory>
#include <vector>

namespace oz {

// An ordered list of components. The list keeps its own copies, held immutable, so that copies of
// the list can share them and no outside edit reaches into a value a plug holds.
class ComponentListData final : public Data {
public:
    ZFn::Type apiType() const override { return ZFn::kComponentListData; }
    ZFnData::Type dataType() const override { return ZFnData::kComponentList; }
    std::shared_ptr<Data> clone() const override { return std::make_shared<ComponentListData>(*this); }

    std::vector<std::shared_ptr<const Component>> components;
};

} // namespace oz
