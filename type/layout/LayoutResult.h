#pragma once

#include "fonts/FontMessages.h"
#include "geometry/CapFacePlan.h"
#include "geometry/Contour.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace type {

// One entry per character with geometry, in text order, all in scene units.
//
// The text-layout path hands each character on as shapes: every shape becomes
// one mesh face added together with its holes, so a shape's vertices are its
// outer points followed by each hole's points.
using ShapeCaps = std::vector<std::vector<Shape>>;
// The pre-layout and legacy paths hand each character on as a cap plan: all of
// its faces are added first, then every hole is cut into its face, so a
// character's vertices are its faces' points followed by its holes' points.
using PlannedCaps = std::vector<CapFacePlan>;

// What one evaluation of layout and decomposition yields: the caps to turn into
// the flat mesh and the bookkeeping arrays the node writes beside it. Face and
// vertex numbers (holeInfo, vertexTotals) are filled in by textToMesh from the
// mesh it builds, since the host may merge a hole's points into earlier
// vertices.
struct LayoutResult {
    // Scene units per outline unit (fontSize over the font's line height).
    // The caps are already multiplied by it.
    double unitScale = 0.0;
    std::variant<ShapeCaps, PlannedCaps> caps;

    // Counts are whole numbers stored as doubles, as the node's outputs are.
    std::vector<double> shellsPerCharacter; // characters with at least one shell
    std::vector<double> shellsPerWord;      // every line also ends a word
    std::vector<double> shellsPerLine;
    // Running vertex total up to and including each character with vertices.
    std::vector<double> vertexTotals;

    // Per character with geometry: its box corners; the pivot is the minimum.
    // A character without points has both corners at the origin.
    std::vector<Point2> boxMin;
    std::vector<Point2> boxMax;
    std::vector<Point2> pivots;
    // Per line: 0, half or all of the line's width, to be subtracted from the x
    // of every vertex of the line.
    std::vector<double> lineOffsets;

    // (face index, hole point count, first vertex of the hole) per hole.
    std::vector<std::int32_t> holeInfo;

    // Messages the node writes to "fontError" and displays.
    std::vector<FontMessage> messages;
};

// The node's "numberOfShells": the shells of all characters.
std::int32_t numberOfShells(const LayoutResult& result);

} // namespace type
