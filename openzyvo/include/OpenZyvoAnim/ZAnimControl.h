#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZTime.h>

// The scene's time: the current time the graph evaluates at, the playback
// range (min/max) and the animation range that contains it.
class OZ_API ZAnimControl {
public:
    enum PlaybackMode { kPlaybackOnce = 0, kPlaybackLoop, kPlaybackOscillate };

    // Moving the current time dirties every time-dependent plug, so the next
    // read of an animated value sees the new time.
    static ZTime currentTime();
    static ZStatus setCurrentTime(const ZTime& time);

    // The playback range always lies within the animation range: setting one
    // widens or narrows the other as needed. A start after its end fails.
    static ZTime minTime();
    static ZTime maxTime();
    static ZStatus setMinTime(const ZTime& time);
    static ZStatus setMaxTime(const ZTime& time);
    static ZStatus setMinMaxTime(const ZTime& min, const ZTime& max);
    static ZTime animationStartTime();
    static ZTime animationEndTime();
    static ZStatus setAnimationStartTime(const ZTime& time);
    static ZStatus setAnimationEndTime(const ZTime& time);
    static ZStatus setAnimationStartEndTime(const ZTime& start, const ZTime& end);

    static PlaybackMode playbackMode();
    static ZStatus setPlaybackMode(PlaybackMode mode);
    // The time one playback step of `by` after `time` within the playback
    // range, following the playback mode (an oscillating step may turn back:
    // `by` then changes sign).
    static ZTime playbackStep(const ZTime& time, double& by);
};
