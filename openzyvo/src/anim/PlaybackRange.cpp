#include "anim/PlaybackRange.h"

namespace oz::anim {

PlaybackRange PlaybackRange::defaults() {
    return {1.0, 120.0, 1.0, 120.0, ZAnimControl::kPlaybackLoop};
}

PlaybackRange& PlaybackRange::scene() {
    static PlaybackRange range = defaults();
    return range;
}

} // namespace oz::anim
