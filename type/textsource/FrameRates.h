#pragma once

#include <OpenZyvo/ZTime.h>

namespace type {

// Frames per second of a frame-based time unit, as the scene-time text counts
// them; 1 for units that are not frame rates (hours, minutes, seconds).
double framesPerSecond(ZTime::Unit unit);

} // namespace type
