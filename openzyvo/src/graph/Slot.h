#pragma once

#include "data/Data.h"

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace oz {

class Attribute;

// The value of one plug of one node. A compound value has a slot per child;
// an array value has a slot per existing element, by logical index. Data
// objects are shared, never copied, between slots.
struct Slot {
    std::array<double, 4> num{};
    std::shared_ptr<Data> data;
    std::vector<Slot> children;
    std::map<unsigned int, Slot> elements;
    bool dirty = true;
    // Dirtied by a propagation and not read since: what depends on it is
    // dirty already, so a further propagation can stop here.
    bool propagated = false;
    bool evaluating = false;
};

// Builds the default value of `attribute`: the array itself when
// `asElement` is false and the attribute is an array, else one instance.
void initSlot(Slot& slot, const Attribute& attribute, bool asElement);
Slot makeSlot(const Attribute& attribute, bool asElement);

// The value carried by a connection from `src` to `dst`: numbers, shared data
// objects, children and elements. Tuples and compounds of numbers convert
// into each other.
void transferValue(Slot& dst, const Attribute& dstAttr, bool dstIsArray, const Slot& src,
                   const Attribute& srcAttr, bool srcIsArray);

// Like transferValue between plugs of one attribute, but clones data objects.
void deepCopy(Slot& dst, const Slot& src);

void setDirtyTree(Slot& slot, bool dirty);
// Whether the slot and everything below it is dirty and unread since.
bool isQuiet(const Slot& slot);

} // namespace oz
