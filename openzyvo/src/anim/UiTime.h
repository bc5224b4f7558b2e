#pragma once

#include <OpenZyvo/ZTime.h>

namespace oz::anim {

// Curves work in seconds; what they hand to the graph is in the user's unit,
// as every time a node reads is.
inline ZTime uiTime(double seconds) {
    const ZTime::Unit unit = ZTime::uiUnit();
    return ZTime(seconds * ZTime::unitsPerSecond(unit), unit);
}

inline double toSeconds(const ZTime& time) {
    return time.as(ZTime::kSeconds);
}

} // namespace oz::anim
