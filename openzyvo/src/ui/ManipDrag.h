#pragma once

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>
#include <OpenZyvoUI/ZPxManipContainer.h>

namespace oz::ui {

// One drag of a handle of `container`, as a user makes it in the view. Each
// adds to `modifier` the settings of every plug tied to the container's
// manipulators and runs it; kNotFound when the container has no such handle.

// Moves the triad's point by `offset` (world units).
ZStatus dragMove(ZPxManipContainer& container, const ZVector& offset, ZDGModifier& modifier);
// Turns the rotate handle by `degrees` about `axis`: the world's axis in
// world mode, the handle's current axes otherwise.
ZStatus dragRotate(ZPxManipContainer& container, const ZVector& axis, double degrees, ZDGModifier& modifier);
// Multiplies the scale handle's factors by `factors`; with snapping on, the
// new factors round to the handle's increment.
ZStatus dragScale(ZPxManipContainer& container, const ZVector& factors, ZDGModifier& modifier);

} // namespace oz::ui
