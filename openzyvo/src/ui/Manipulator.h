#pragma once

#include "core/Object.h"

#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZString.h>

namespace oz::ui {

class ManipContainerState;

enum class ManipKind { FreePointTriad, Rotate, Scale };

// One child manipulator of a container. Its values (a triad's point; a
// rotation and its centre; a scale and its centre) live in the container,
// from `firstValue` on, so that conversions can address every value of the
// container by one index.
class Manipulator final : public Object {
public:
    Manipulator(ManipKind kind, ZString name, ManipContainerState* container, unsigned int firstValue)
        : kind(kind)
        , name(std::move(name))
        , container(container)
        , firstValue(firstValue) {}

    ZFn::Type apiType() const override { return ZFn::kManipulator; }

    const ManipKind kind;
    const ZString name;
    // Cleared when the container goes; the function sets then fail.
    ManipContainerState* container;
    const unsigned int firstValue;

    // The handle's own transform.
    ZEulerRotation orientation;
    ZPoint translation;
    int rotateMode = 0;
    bool snap = true;
    double snapIncrement = 1.0;
};

// How many values a manipulator of `kind` has.
unsigned int valueCount(ManipKind kind);

} // namespace oz::ui
