#include "deformers/ElementMotion.h"

#include "deformers/ElementGrouping.h"

#include <tbb/parallel_for.h>

namespace type {

namespace {

const Point3* entry(const std::vector<Point3>& values, int element) {
    if (values.empty())
        return nullptr;
    return &values[static_cast<std::size_t>(element) % values.size()];
}

double axis(const Point3& p, int a) {
    return a == 0 ? p.x : (a == 1 ? p.y : p.z);
}

void setAxis(Point3& p, int a, double value) {
    (a == 0 ? p.x : (a == 1 ? p.y : p.z)) = value;
}

// The element's own box on the local axes, the whole text's on the others.
Box3 pivotBox(const Box3& own, const Box3& text, const std::array<bool, 3>& local) {
    Box3 box = own;
    for (int a = 0; a < 3; ++a)
        if (!local[static_cast<std::size_t>(a)]) {
            setAxis(box.min, a, axis(text.min, a));
            setAxis(box.max, a, axis(text.max, a));
        }
    return box;
}

Point3 pivotIn(const Box3& box, const Point3& location, const Point3& translation) {
    Point3 pivot;
    for (int a = 0; a < 3; ++a) {
        const double at = axis(location, a);
        setAxis(pivot, a, (1.0 - at) * axis(box.min, a) + at * axis(box.max, a) + axis(translation, a));
    }
    return pivot;
}

const Box3* boundsOf(const Elements& elements, int element) {
    if (element < 0 || static_cast<std::size_t>(element) >= elements.bounds.size())
        return nullptr;
    return &elements.bounds[static_cast<std::size_t>(element)];
}

} // namespace

int groupCount(const AnimationFrame& frame) {
    switch (frame.grouping) {
    case AnimationGrouping::Word:
        return static_cast<int>(frame.solidsPerWord.size());
    case AnimationGrouping::Line:
        return static_cast<int>(frame.solidsPerLine.size());
    default:
        return static_cast<int>(frame.solidsPerCharacter.size());
    }
}

namespace {

// The running sums an element's group is looked up in, built once per frame.
struct GroupSums {
    explicit GroupSums(const AnimationFrame& frame)
        : characters(frame.solidsPerCharacter)
        , blocks(blocksOf(frame)) {}

    // The word or line sums when the elements move in blocks, else none.
    static std::span<const double> blocksOf(const AnimationFrame& frame) {
        if (frame.grouping == AnimationGrouping::Word && !frame.solidsPerWord.empty() &&
            !frame.solidsPerLine.empty())
            return frame.solidsPerWord;
        if (frame.grouping == AnimationGrouping::Line && !frame.solidsPerLine.empty())
            return frame.solidsPerLine;
        return {};
    }

    RunningSums characters;
    RunningSums blocks;
};

ElementMotion motionOf(const AnimationFrame& frame, const GroupSums& sums, const Elements& elements,
                       int element) {
    const Box3 own = elements.bounds[static_cast<std::size_t>(element)];
    Box3 rotationBox = pivotBox(own, elements.textBounds, frame.localRotationPivot);
    const Box3 scaleBox = pivotBox(own, elements.textBounds, frame.localScalePivot);

    int group = element;
    if (sums.blocks.groups() > 0) {
        const SolidGroup block = sums.blocks.holding(sums.characters.before(element));
        group = block.index;
        if (block.index >= 0) {
            const Box3* first = boundsOf(elements, sums.characters.holding(block.first).index);
            const Box3* last =
                boundsOf(elements, sums.characters.holding(block.first + block.count - 1).index);
            if (first && last) {
                rotationBox.min = first->min;
                rotationBox.max = last->max;
            }
        }
    }

    const Point3 zero;
    const Point3 offset = entry(frame.positionIn, element) ? *entry(frame.positionIn, element) : zero;
    const Point3 turn = entry(frame.rotationIn, element) ? *entry(frame.rotationIn, element) : zero;
    const Point3 growth = entry(frame.scaleIn, element) ? *entry(frame.scaleIn, element) : zero;
    const double envelope = frame.envelope;

    Point3 position{envelope * frame.position.x, envelope * frame.position.y, envelope * frame.position.z};
    Point3 rotation{(frame.rotation.x + envelope * turn.x) * kRadiansToDegrees,
                    (frame.rotation.y + envelope * turn.y) * kRadiansToDegrees,
                    (frame.rotation.z + envelope * turn.z) * kRadiansToDegrees};
    Point3 scale{envelope * growth.x + frame.scale.x, envelope * growth.y + frame.scale.y,
                 envelope * growth.z + frame.scale.z};
    // Keyed values at the group's own time replace the current ones as they are.
    Point3* targets[3] = {&position, &rotation, &scale};
    for (int channel = 0; channel < kChannelCount; ++channel) {
        const std::vector<double>& samples = frame.sampled[static_cast<std::size_t>(channel)];
        if (samples.empty() || group < 0 || static_cast<std::size_t>(group) >= samples.size())
            continue;
        const double value = samples[static_cast<std::size_t>(group)];
        const bool isRotation = channel >= kRotationX && channel <= kRotationZ;
        setAxis(*targets[channel / 3], channel % 3, isRotation ? value * kRadiansToDegrees : value);
    }

    ElementMotion motion;
    motion.translation = {offset.x + position.x, offset.y + position.y, offset.z + position.z};
    motion.rotationDegrees = rotation;
    motion.scale = scale;
    motion.rotationPivot = pivotIn(rotationBox, frame.pivotLocation, motion.translation);
    motion.scalePivot = pivotIn(scaleBox, frame.pivotLocation, motion.translation);
    return motion;
}

} // namespace

bool ElementMotion::sameAs(const ElementMotion& other) const {
    if (!moves() && !other.moves())
        return true;
    const auto same = [](const Point3& a, const Point3& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    };
    return same(translation, other.translation) && same(rotationDegrees, other.rotationDegrees) &&
           same(scale, other.scale) && same(rotationPivot, other.rotationPivot) &&
           same(scalePivot, other.scalePivot);
}

AffineMap motionMap(const ElementMotion& motion) {
    return AffineMap::translation(motion.translation)
        .then(AffineMap::of(PivotTransform(motion.scalePivot, {}, motion.scale)))
        .then(AffineMap::of(PivotTransform(motion.rotationPivot, motion.rotationDegrees, {1.0, 1.0, 1.0})));
}

ElementMotion elementMotion(const AnimationFrame& frame, const Elements& elements, int element) {
    return motionOf(frame, GroupSums(frame), elements, element);
}

std::vector<ElementMotion> elementMotions(const AnimationFrame& frame, const Elements& elements) {
    const GroupSums sums(frame);
    std::vector<ElementMotion> motions(elements.vertices.size());
    tbb::parallel_for(std::size_t{0}, motions.size(), [&](std::size_t i) {
        motions[i] = motionOf(frame, sums, elements, static_cast<int>(i));
    });
    return motions;
}

} // namespace type
