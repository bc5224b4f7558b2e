#pragma once

#include "deformers/ElementDiscovery.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

namespace type {

// A deformer's elements, found once and kept until its input geometry
// changes (or another geometry, or one with another point count, comes in).
class ElementCache {
public:
    void invalidate() { m_valid = false; }

    // Finds the elements of input[multiIndex] unless they are known, seeding
    // from the vertex groups that `groupIds` names.
    ZStatus update(ZDataBlock& block, const ZObject& node, unsigned int multiIndex, int pointCount,
                   const ZObject& groupIds);

    const Elements& elements() const { return m_elements; }

private:
    bool m_valid = false;
    unsigned int m_index = 0;
    int m_pointCount = -1;
    Elements m_elements;
};

} // namespace type
