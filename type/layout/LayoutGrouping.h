#pragma once

#include "geometry/BoundingBox.h"
#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

#include <cstdint>

namespace type {

// Walks a laid-out text character by character and fills the result's caps,
// grouping arrays, boxes and alignment offsets; the vertex totals and holeInfo
// come from the mesh the caps become (textToMesh).
//
// Words end at every blank and at the end of every line, so two blanks in a row
// give an empty word (0) and an empty line gives a 0 for its line and its word.
// A character's shells are its outer boundaries; it is listed in the shell
// array only when it has some, but always gets a box.
class LayoutGrouping {
public:
    LayoutGrouping(LayoutResult& result, AlignmentMode alignment);

    void addBlank();

    // `box` holds every placed point of the character; the line's box grows
    // by it. The text-layout path passes shapes, the other paths cap plans.
    void addCharacter(std::vector<Shape> shapes, const BoundingBox& box);
    void addCharacter(CapFacePlan plan, const BoundingBox& box);

    void endLine();

private:
    void addCounts(std::size_t shells, const BoundingBox& box);

    LayoutResult& m_result;
    AlignmentMode m_alignment;
    BoundingBox m_lineBox;
    std::int32_t m_lineShells = 0;
    std::int32_t m_wordShells = 0;
};

// Corners as the node writes them: an empty box reads as the origin.
Point2 boxMinCorner(const BoundingBox& box);
Point2 boxMaxCorner(const BoundingBox& box);

} // namespace type
