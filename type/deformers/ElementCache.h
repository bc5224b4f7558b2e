#pragma once

#include "deformers/ElementDiscovery.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZStatus.h>
#include <span>

namespace type {

// A deformer's elements and input points, found once and kept until its
// input geometry changes (or another geometry, or one with another point
// count, comes in): a frame then reads nothing of the mesh.
class ElementCache {
public:
    void invalidate() { m_valid = false; }

    // Finds the elements of input[multiIndex] unless they are known, seeding
    // from the vertex groups that `groupIds` names, and keeps the points that
    // `geometry` holds before it is deformed (object space).
    ZStatus update(ZDataBlock& block, const ZObject& node, unsigned int multiIndex, ZItGeometry& geometry,
                   const ZObject& groupIds);

    const Elements& elements() const { return m_elements; }
    std::span<const ZPoint> inputPoints() const { return {m_input.data(), m_input.length()}; }
    // Where a frame writes its moved points, kept between frames so that its
    // pages are not filled afresh each time. It holds the input points after
    // every rebuild, so vertices that no element holds keep them.
    ZPointArray& movedPoints() { return m_moved; }
    // Counts the rebuilds: what a user of movedPoints() remembers of them
    // holds only as long as this stays the same.
    unsigned int generation() const { return m_generation; }

private:
    bool m_valid = false;
    unsigned int m_index = 0;
    unsigned int m_generation = 0;
    Elements m_elements;
    ZPointArray m_input;
    ZPointArray m_moved;
};

} // namespace type
