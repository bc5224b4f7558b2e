#include "core/StatusOut.h"

#include <OpenZyvo/ZDistance.h>
#include <atomic>

namespace {

std::atomic<ZDistance::Unit> uiDistanceUnit{ZDistance::kCentimeters};

// Centimetres per unit.
double scale(ZDistance::Unit unit) {
    switch (unit) {
    case ZDistance::kInches:
        return 2.54;
    case ZDistance::kFeet:
        return 30.48;
    case ZDistance::kYards:
        return 91.44;
    case ZDistance::kMiles:
        return 160934.4;
    case ZDistance::kMillimeters:
        return 0.1;
    case ZDistance::kCentimeters:
        return 1.0;
    case ZDistance::kKilometers:
        return 100000.0;
    case ZDistance::kMeters:
        return 100.0;
    default:
        return 0.0;
    }
}

} // namespace

double ZDistance::as(Unit unit, ZStatus* status) const {
    const double from = scale(m_unit), to = scale(unit);
    oz::setStatus(status, from == 0.0 || to == 0.0 ? ZStatus::kInvalidParameter : ZStatus::kSuccess);
    if (from == 0.0 || to == 0.0)
        return 0.0;
    return unit == m_unit ? m_value : m_value * from / to;
}

ZStatus ZDistance::setUnit(Unit unit) {
    if (scale(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    m_unit = unit;
    return ZStatus::kSuccess;
}

ZDistance::Unit ZDistance::uiUnit() {
    return uiDistanceUnit.load();
}

ZStatus ZDistance::setUIUnit(Unit unit) {
    if (scale(unit) == 0.0)
        return ZStatus::kInvalidParameter;
    uiDistanceUnit.store(unit);
    return ZStatus::kSuccess;
}
