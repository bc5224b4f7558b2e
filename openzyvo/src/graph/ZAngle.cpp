#include "core/StatusOut.h"

#include <OpenZyvo/ZAngle.h>
#include <atomic>
#include <numbers>

namespace {

std::atomic<ZAngle::Unit> uiAngleUnit{ZAngle::kDegrees};

// Radians per unit.
double scale(ZAngle::Unit unit) {
    switch (unit) {
    case ZAngle::kRadians:
        return 1.0;
    case ZAngle::kDegrees:
        return std::numbers::pi / 180.0;
    case ZAngle::kAngMinutes:
        return std::numbers::pi / (180.0 * 60.0);
    case ZAngle::kAngSeconds:
        return std::numbers::pi / (180.0 * 3600.0);
    default:
        return 0.0;
    }
}

} // namespace

double ZAngle::as(Unit unit, ZStatus* status) const {
    const double from = scale(m_unit), to = scale(unit);
    oz::setStatus(status, from == 0.0 || to == 0.0 ? ZStatus::kInvalidParameter : ZStatus::kSuccess);
    if (from == 0.0 || to == 0.0)
        return 0.0;
    return unit == m_unit ? m_value : m_value * from / to;
}

ZStatus ZAngle::setUnit(Unit unit) {
    if (scale(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    m_unit = unit;
    return ZStatus::kSuccess;
}

ZAngle::Unit ZAngle::uiUnit() {
    return uiAngleUnit.load();
}

ZStatus ZAngle::setUIUnit(Unit unit) {
    if (scale(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    uiAngleUnit.store(unit);
    return ZStatus::kSuccess;
}
