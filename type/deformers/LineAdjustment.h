#pragma once

#include "deformers/AffineMap.h"
#include "deformers/ElementDiscovery.h"
#include "deformers/PivotTransform.h"

#include <algorithm>
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

    // All of it as one map.
    AffineMap map() const {
        return AffineMap::of(word)
            .then(AffineMap::of(line))
            .then(AffineMap::of(own))
            .then(AffineMap::translation({translation.x - alignmentShift, translation.y, translation.z}));
    }
};

// The characters of line `line`, in text order, that have an element.
std::vector<CharacterLayout> layoutLine(const Adjustments& adjustments, const Elements& elements, int line);

// Writes one character's moved vertices from `in` to `out` (the same array
// moves them in place) and returns their new box. The character ends at the
// first vertex id beyond either array; a coordinate that comes out NaN keeps
// its input value.
template <class Point>
Box3 adjustCharacter(const CharacterLayout& layout, std::span<const int> vertices, std::span<const Point> in,
                     std::span<Point> out) {
    const std::size_t count = std::min(in.size(), out.size());
    const AffineMap map = layout.map();
    Box3 box;
    for (int v : vertices) {
        if (v < 0 || static_cast<std::size_t>(v) >= count)
            break;
        const Point& from = in[static_cast<std::size_t>(v)];
        Point& to = out[static_cast<std::size_t>(v)];
        const Point3 moved = map.apply(from.x, from.y, from.z);
        to = from;
        if (!std::isnan(moved.x))
            to.x = moved.x;
        if (!std::isnan(moved.y))
            to.y = moved.y;
        if (!std::isnan(moved.z))
            to.z = moved.z;
        box.extend({to.x, to.y, to.z});
    }
    return box;
}

template <class Point>
Box3 adjustCharacter(const CharacterLayout& layout, std::span<const int> vertices, std::span<Point> points) {
    return adjustCharacter(layout, vertices, std::span<const Point>(points), points);
}

// Copies the vertices of an element that stays where it came in.
template <class Point>
void keepElement(std::span<const int> vertices, std::span<const Point> in, std::span<Point> out) {
    const std::size_t count = std::min(in.size(), out.size());
    for (int v : vertices)
        if (v >= 0 && static_cast<std::size_t>(v) < count)
            out[static_cast<std::size_t>(v)] = in[static_cast<std::size_t>(v)];
}

} // namespace type
