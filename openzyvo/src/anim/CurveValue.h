#pragma once

#include "anim/CurveKind.h"

#include <OpenZyvo/ZTime.h>

namespace oz::anim {

// Values of time-to-time curves travel through the API in the user's time
// unit but are kept in seconds, like key times; other kinds need no change.
inline double toCurveValue(CurveKind kind, double value) {
    return kind == CurveKind::kTime ? value / ZTime::unitsPerSecond(ZTime::uiUnit()) : value;
}

inline double fromCurveValue(CurveKind kind, double value) {
    return kind == CurveKind::kTime ? value * ZTime::unitsPerSecond(ZTime::uiUnit()) : value;
}

} // namespace oz::anim
