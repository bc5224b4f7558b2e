#pragma once

#include <OpenZyvoAnim/ZAnimControl.h>

namespace oz::anim {

// The scene's playback and animation ranges, as numbers in the user's time
// unit: like time attributes, they keep their frame numbers when the unit
// changes. Scene files save them and a new scene resets them. Main thread only.
struct PlaybackRange {
    double minTime;
    double maxTime;
    double startTime;
    double endTime;
    ZAnimControl::PlaybackMode mode = ZAnimControl::kPlaybackLoop;

    static PlaybackRange& scene();
    // Frames 1 to 120 of the current time unit, looping.
    static PlaybackRange defaults();
};

} // namespace oz::anim
