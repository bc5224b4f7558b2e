#include <OpenZyvo/ZTime.h>
#include <atomic>

namespace {
std::atomic<ZTime::Unit> currentUnit{ZTime::kFilm};
}

double ZTime::unitsPerSecond(Unit unit) {
    switch (unit) {
    case kHours:
        return 1.0 / 3600.0;
    case kMinutes:
        return 1.0 / 60.0;
    case kSeconds:
        return 1.0;
    case kMilliseconds:
        return 1000.0;
    case kGames:
        return 15.0;
    case kFilm:
        return 24.0;
    case kPALFrame:
        return 25.0;
    case kNTSCFrame:
        return 30.0;
    case kShowScan:
        return 48.0;
    case kPALField:
        return 50.0;
    case kNTSCField:
        return 60.0;
    case kInvalid:
    case kLast:
        break;
    }
    return 0.0;
}

double ZTime::as(Unit unit) const {
    const double from = unitsPerSecond(m_unit), to = unitsPerSecond(unit);
    if (from == 0.0 || to == 0.0)
        return 0.0;
    return m_unit == unit ? m_value : m_value / from * to;
}

ZStatus ZTime::setUnit(Unit unit) {
    if (unitsPerSecond(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    m_unit = unit;
    return ZStatus::kSuccess;
}

ZTime::Unit ZTime::uiUnit() {
    return currentUnit.load();
}

ZStatus ZTime::setUIUnit(Unit unit) {
    if (unitsPerSecond(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    currentUnit.store(unit);
    return ZStatus::kSuccess;
}
