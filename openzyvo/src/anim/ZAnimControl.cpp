#include "anim/PlaybackRange.h"
#include "graph/Graph.h"

#include <OpenZyvoAnim/ZAnimControl.h>
#include <algorithm>
#include <cmath>

using oz::anim::PlaybackRange;

namespace {

bool valid(const ZTime& time) {
    return std::isfinite(time.value()) && ZTime::unitsPerSecond(time.unit()) > 0.0;
}

double inUiUnit(const ZTime& time) {
    return time.as(ZTime::uiUnit());
}

// Sets both ranges at once, the one given taking precedence: the other
// widens (animation range) or narrows (playback range) to keep containing it.
ZStatus setPlayback(const ZTime& min, const ZTime& max) {
    if (!valid(min) || !valid(max) || max < min)
        return ZStatus::kInvalidParameter;
    PlaybackRange& range = PlaybackRange::scene();
    range.minTime = inUiUnit(min);
    range.maxTime = inUiUnit(max);
    range.startTime = std::min(range.startTime, range.minTime);
    range.endTime = std::max(range.endTime, range.maxTime);
    return ZStatus::kSuccess;
}

ZStatus setAnimation(const ZTime& start, const ZTime& end) {
    if (!valid(start) || !valid(end) || end < start)
        return ZStatus::kInvalidParameter;
    PlaybackRange& range = PlaybackRange::scene();
    range.startTime = inUiUnit(start);
    range.endTime = inUiUnit(end);
    range.minTime = std::clamp(range.minTime, range.startTime, range.endTime);
    range.maxTime = std::clamp(range.maxTime, range.minTime, range.endTime);
    return ZStatus::kSuccess;
}

} // namespace

ZTime ZAnimControl::currentTime() {
    return ZTime(inUiUnit(oz::Graph::instance().currentTime()));
}

ZStatus ZAnimControl::setCurrentTime(const ZTime& time) {
    if (!valid(time))
        return ZStatus::kInvalidParameter;
    oz::Graph::instance().setCurrentTime(time);
    return ZStatus::kSuccess;
}

ZTime ZAnimControl::minTime() {
    return ZTime(PlaybackRange::scene().minTime);
}

ZTime ZAnimControl::maxTime() {
    return ZTime(PlaybackRange::scene().maxTime);
}

ZTime ZAnimControl::animationStartTime() {
    return ZTime(PlaybackRange::scene().startTime);
}

ZTime ZAnimControl::animationEndTime() {
    return ZTime(PlaybackRange::scene().endTime);
}

ZStatus ZAnimControl::setMinTime(const ZTime& time) {
    return setPlayback(time, maxTime());
}

ZStatus ZAnimControl::setMaxTime(const ZTime& time) {
    return setPlayback(minTime(), time);
}

ZStatus ZAnimControl::setMinMaxTime(const ZTime& min, const ZTime& max) {
    return setPlayback(min, max);
}

ZStatus ZAnimControl::setAnimationStartTime(const ZTime& time) {
    return setAnimation(time, animationEndTime());
}

ZStatus ZAnimControl::setAnimationEndTime(const ZTime& time) {
    return setAnimation(animationStartTime(), time);
}

ZStatus ZAnimControl::setAnimationStartEndTime(const ZTime& start, const ZTime& end) {
    return setAnimation(start, end);
}

ZAnimControl::PlaybackMode ZAnimControl::playbackMode() {
    return PlaybackRange::scene().mode;
}

ZStatus ZAnimControl::setPlaybackMode(PlaybackMode mode) {
    if (mode < kPlaybackOnce || mode > kPlaybackOscillate)
        return ZStatus::kInvalidParameter;
    PlaybackRange::scene().mode = mode;
    return ZStatus::kSuccess;
}

ZTime ZAnimControl::playbackStep(const ZTime& time, double& by) {
    const ZTime min = minTime(), max = maxTime();
    const ZTime from(time.as(ZTime::uiUnit()));
    ZTime next = from + by;
    if (next <= max && next >= min)
        return next;
    switch (playbackMode()) {
    case kPlaybackLoop:
        return next > max ? min : max;
    case kPlaybackOscillate:
        by = -by;
        next = from + by;
        return next > max ? max : next < min ? min : next;
    case kPlaybackOnce:
        break;
    }
    return next > max ? max : min;
}
