#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>

class ZObject;
class ZObjectArray;
class ZPlug;
class ZPlugArray;

// Finds the animation curves that drive plugs.
class OZ_API ZAnimUtil {
public:
    // Whether an animation curve's output drives `plug` (or, for a compound
    // or array plug, any of its children or elements) directly.
    static bool isAnimated(const ZPlug& plug, ZStatus* status = nullptr);
    // Appends the curves driving `plug`, its children and elements to
    // `curves`; true when it found any.
    static bool findAnimation(const ZPlug& plug, ZObjectArray& curves, ZStatus* status = nullptr);
    // Appends the plugs of `node` that animation curves drive.
    static bool findAnimatedPlugs(const ZObject& node, ZPlugArray& plugs, ZStatus* status = nullptr);
};
