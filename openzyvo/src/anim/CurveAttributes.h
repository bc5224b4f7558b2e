#pragma once

#include "anim/CurveKind.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

namespace oz::anim {

// The attributes of animation curve nodes. Keys are stored so that a scene
// file can save and re-create them: element i of `keyTimeValue` and of each
// tangent array describe the same key (missing tangent elements read as
// auto, angle 0, weight 1).
struct CurveAttributes {
    // Shared by every curve type, from the abstract type "animCurve".
    struct Common {
        ZObject input;         // time; the evaluation time when unconnected
        ZObject inTangentType; // short arrays of TangentType
        ZObject outTangentType;
        ZObject inTangentAngle; // angle arrays
        ZObject outTangentAngle;
        ZObject inTangentWeight; // double arrays
        ZObject outTangentWeight;
        ZObject weightedTangents;
        ZObject preInfinity; // enums of Infinity
        ZObject postInfinity;
    };
    // Of one curve type: the output and the keys, in that type's unit.
    struct Typed {
        ZObject output;
        ZObject keyTimeValue; // array of compounds:
        ZObject keyTime;      //   time
        ZObject keyValue;     //   value
    };

    static Common common;
    static Typed typed[kCurveKindCount];
    static const Typed& of(CurveKind kind) { return typed[static_cast<int>(kind)]; }

    static ZStatus initializeCommon();
    static ZStatus initializeTyped(CurveKind kind);
};

} // namespace oz::anim
