#include "core/UnitScale.h"

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

constexpr oz::UnitScale<ZDistance::Unit> units(scale);

} // namespace

double ZDistance::as(Unit unit, ZStatus* status) const {
    return units.convert(m_value, m_unit, unit, status);
}

ZStatus ZDistance::setUnit(Unit unit) {
    return units.assign(m_unit, unit);
}

ZDistance::Unit ZDistance::uiUnit() {
    return uiDistanceUnit.load();
}

ZStatus ZDistance::setUIUnit(Unit unit) {
    return units.assign(uiDistanceUnit, unit);
}
