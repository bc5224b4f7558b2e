#pragma once

#include "anim/Curve.h"
#include "anim/CurveKind.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <utility>
#include <vector>

class ZDataBlock;

namespace oz::anim {

// The keys of a curve node as its attributes hold them, by element index.
// Scene files may leave them sparse, unsorted or without tangents.
struct StoredKeys {
    struct Entry {
        unsigned int index;
        double time; // seconds
        double value;
    };
    using Column = std::vector<std::pair<unsigned int, double>>; // ascending index

    std::vector<Entry> keys; // ascending index
    Column inType, outType, inAngle, outAngle, inWeight, outWeight;
    bool weighted = false;
    short preInfinity = 0;
    short postInfinity = 0;

    // The curve they describe. `canonical` tells whether element i already
    // is key i in time order, as writeKeys() leaves them.
    ZStatus toCurve(Curve& curve, bool& canonical) const;
};

// Reads them during compute, or from the node's plugs outside it.
ZStatus readKeys(ZDataBlock& block, CurveKind kind, StoredKeys& keys);
ZStatus readKeys(const ZObject& node, CurveKind kind, StoredKeys& keys);

// Writes keys [first, last) of `curve` as elements of the same index, its
// weighting and infinities, and removes elements past its last key.
ZStatus writeKeys(const ZObject& node, CurveKind kind, const Curve& curve, std::size_t first,
                  std::size_t last);

} // namespace oz::anim
