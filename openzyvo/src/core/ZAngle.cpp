#include "core/UnitScale.h"

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

constexpr oz::UnitScale<ZAngle::Unit> units(scale);

} // namespace

double ZAngle::as(Unit unit, ZStatus* status) const {
    return units.convert(m_value, m_unit, unit, status);
}

ZStatus ZAngle::setUnit(Unit unit) {
    return units.assign(m_unit, unit);
}

ZAngle::Unit ZAngle::uiUnit() {
    return uiAngleUnit.load();
}

ZStatus ZAngle::setUIUnit(Unit unit) {
    return units.assign(uiAngleUnit, unit);
}
