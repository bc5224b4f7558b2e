#include "textsource/FrameRates.h"

namespace type {

double framesPerSecond(ZTime::Unit unit) {
    switch (unit) {
    case ZTime::kMilliseconds:
        return 1000.0;
    case ZTime::kGames:
        return 15.0;
    case ZTime::kFilm:
        return 24.0;
    case ZTime::kPALFrame:
        return 25.0;
    case ZTime::kNTSCFrame:
        return 30.0;
    case ZTime::kShowScan:
        return 48.0;
    case ZTime::kPALField:
        return 50.0;
    case ZTime::kNTSCField:
        return 60.0;
    default:
        return 1.0;
    }
}

} // namespace type
