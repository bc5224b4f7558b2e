#pragma once

#include "anim/Curve.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZTime.h>
#include <vector>

class ZPlug;

namespace oz::anim {

// What setKeyframe() did to one curve, enough to take it back.
struct KeyframeChange {
    ZObject curve;
    bool created = false; // the curve was made (and connected) for the key
    Curve before;         // its keys before
};

// Keys `plug` at `time` with its current value: a key already at that time
// takes the value and keeps its tangents; a plug no curve drives yet gets a
// new curve of its kind. A compound plug keys its keyable children. Fails on
// plugs that are not keyable, that another node drives, or that no curve
// can animate; changes made before a failure stay listed in `changes`.
ZStatus setKeyframe(const ZPlug& plug, const ZTime& time, std::vector<KeyframeChange>* changes = nullptr);

// Takes back what setKeyframe() listed, newest first: restores the keys of
// existing curves and deletes the curves it made.
ZStatus undoKeyframes(const std::vector<KeyframeChange>& changes);

} // namespace oz::anim
