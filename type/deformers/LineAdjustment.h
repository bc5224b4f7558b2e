#pragma once

#include "deformers/ElementDiscovery.h"
#include "deformers/PivotTransform.h"

#include <cmath>
#include <span>
#include <vector>

namespace type {

// How lines are aligned, the alignmentMode values.
enum class LineAlignment { Left = 1, Centre = 2, Right = 3 };

// The hand-made adjustments of a text, as the type manipulator stores them:
// a translation, rotation (degrees) and scale per character, word and line.
// Scales are stored as offsets from 1. Entries past an array's end adjust
// nothing.
struct Adjustments {
    std::vector<Point3> positions, wordPositions, linePositions;
    std::vector<Point3> rotations, wordRotations, lineRotations;
    std::vector<Point3> scales, wordScales, lineScales;
    std::vector<double> alignmentAdjustments; // per line
    LineAlignment alignment = LineAlignment::Left;
    std::vector<double> solidsPerCharacter, solidsPerWord, solidsPerLine;
};

// Whether there is anything to lay out: characters, their positions and lines.
bool canAdjust(const Adjustments& adjustments);

// One character of a line and how its vertices move: about the word's, then
// the line's, then its own pivot, then along the line, then aligned.
struct CharacterLayout {
    int character = 0;
    PivotTransform word;
    PivotTransform line;
    PivotTransform own;
    Point3 translation;
    double alignmentShift = 0.0; // subtracted from x

    bool moves() const {
        return !word.identity() || !line.identity() || !own.identity() || translation.x != 0.0 ||
               translation.y != 0.0 || translation.z != 0.0 || alignmentShift != 0.0;
    }
};

// The characters of line `line`, in text order, that have an element.
std::vector<CharacterLayout> layoutLine(const Adjustments& adjustments, const Elements& elements, int line);

// Moves one character's vertices in place and returns their new box. The
// character ends at the first vertex id beyond the points; a coordinate that
// comes out NaN keeps its input value.
template <class Point>
Box3 adjustCharacter(const CharacterLayout& layout, std::span<const int> vertices, std::span<Point> points) {
    Box3 box;
    for (int v : vertices) {
        if (v < 0 || static_cast<std::size_t>(v) >= points.size())
            break;
        Point& point = points[static_cast<std::size_t>(v)];
        Point3 moved = layout.own.apply(layout.line.apply(layout.word.apply({point.x, point.y, point.z})));
        moved = {moved.x + layout.translation.x - layout.alignmentShift, moved.y + layout.translation.y,
                 moved.z + layout.translation.z};
        if (!std::isnan(moved.x))
            point.x = moved.x;
        if (!std::isnan(moved.y))
            point.y = moved.y;
        if (!std::isnan(moved.z))
            point.z = moved.z;
        box.extend({point.x, point.y, point.z});
    }
    return box;
}

} // namespace type
