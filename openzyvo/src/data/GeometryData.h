#pragma once

#include "data/Component.h"
#include "data/Data.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace oz {

// A named subset of a geometry: the id that shading and deformer sets refer to, and the elements
// it holds. The component is shared between copies of the data and never edited in place; edits
// replace it.
struct ObjectGroup {
    unsigned int id = 0;
    std::shared_ptr<const Component> component; // null until one is set
};

// Data that is geometry: it carries object groups, in the order they were added.
class GeometryData : public Data {
public:
    bool hasFn(ZFn::Type type) const override { return type == ZFn::kGeometryData || Data::hasFn(type); }

    // How many elements of a component kind the geometry has; group members must be below it.
    virtual int64_t elementCount(ZFn::Type componentKind) const = 0;

    ObjectGroup* findObjectGroup(unsigned int id) {
        const auto it = std::find_if(objectGroups.begin(), objectGroups.end(),
                                     [id](const ObjectGroup& g) { return g.id == id; });
        return it == objectGroups.end() ? nullptr : &*it;
    }

    std::vector<ObjectGroup> objectGroups;
};

} // namespace oz
