#pragma once

#include "deformers/AffineMap.h"
#include "deformers/ElementDiscovery.h"
#include "deformers/PivotTransform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

namespace type {

// What the elements move by; the groups of animationMode. Words and lines
// rotate as blocks about a pivot on their own span.
enum class AnimationGrouping { Character = 1, Word = 2, Line = 3 };

// The nine animation channels, in the order their sampled values are kept.
enum AnimationChannel {
    kPositionX,
    kPositionY,
    kPositionZ,
    kRotationX,
    kRotationY,
    kRotationZ,
    kScaleX,
    kScaleY,
    kScaleZ,
    kChannelCount
};

// One evaluation's inputs to the per-element motion, read once on the
// evaluating thread and then shared read-only by the element tasks.
struct AnimationFrame {
    float envelope = 1.0f;
    Point3 pivotLocation{0.5, 0.5, 0.5};
    std::array<bool, 3> localRotationPivot{true, false, true};
    std::array<bool, 3> localScalePivot{true, false, true};
    AnimationGrouping grouping = AnimationGrouping::Character;
    std::vector<double> solidsPerCharacter;
    std::vector<double> solidsPerWord;
    std::vector<double> solidsPerLine;
    // Per-particle offsets, indexed by element modulo their length.
    std::vector<Point3> positionIn;
    std::vector<Point3> rotationIn; // radians
    std::vector<Point3> scaleIn;
    // The channels' current values.
    Point3 position;
    Point3 rotation; // radians
    Point3 scale{1.0, 1.0, 1.0};
    // Each channel sampled at each group's delayed time (rotations in radians).
    std::array<std::vector<double>, kChannelCount> sampled;
};

// The groups whose delayed times are sampled: characters, words or lines.
int groupCount(const AnimationFrame& frame);

// How one element moves: scaled by `scale` about `scalePivot`, then turned by
// `rotationDegrees` about `rotationPivot`, after the translation.
struct ElementMotion {
    Point3 translation;
    Point3 rotationDegrees;
    Point3 scale{1.0, 1.0, 1.0};
    Point3 rotationPivot;
    Point3 scalePivot;

    bool moves() const {
        return translation.x != 0.0 || translation.y != 0.0 || translation.z != 0.0 ||
               rotationDegrees.x != 0.0 || rotationDegrees.y != 0.0 || rotationDegrees.z != 0.0 ||
               scale.x != 1.0 || scale.y != 1.0 || scale.z != 1.0;
    }

    // Whether `other` puts every point where this motion does: neither moves
    // anything, or both are the same motion.
    bool sameAs(const ElementMotion& other) const;
};

ElementMotion elementMotion(const AnimationFrame& frame, const Elements& elements, int element);

// The whole motion of an element: translated, then scaled about one pivot,
// then turned about the other.
AffineMap motionMap(const ElementMotion& motion);

// The motions of every element, with the grouping sums built once for all.
std::vector<ElementMotion> elementMotions(const AnimationFrame& frame, const Elements& elements);

// Writes the moved points of one element from `in` to `out` (the same array
// moves them in place); any point type with x, y and z will do, so the host's
// point arrays are moved without a copy. An element that does not move is
// copied. Vertex ids beyond either array are skipped; a coordinate that comes
// out NaN keeps its input value.
template <class Point>
void moveElement(const ElementMotion& motion, std::span<const int> vertices, std::span<const Point> in,
                 std::span<Point> out) {
    const std::size_t count = std::min(in.size(), out.size());
    if (!motion.moves()) {
        for (int v : vertices)
            if (v >= 0 && static_cast<std::size_t>(v) < count)
                out[static_cast<std::size_t>(v)] = in[static_cast<std::size_t>(v)];
        return;
    }
    const AffineMap map = motionMap(motion);
    for (int v : vertices) {
        if (v < 0 || static_cast<std::size_t>(v) >= count)
            continue;
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
    }
}

template <class Point>
void moveElement(const ElementMotion& motion, std::span<const int> vertices, std::span<Point> points) {
    moveElement(motion, vertices, std::span<const Point>(points), points);
}

} // namespace type
