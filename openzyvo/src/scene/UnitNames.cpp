#include "scene/UnitNames.h"

#include <array>

namespace oz::scene {

namespace {

template <typename Unit> struct UnitName {
    Unit unit;
    const char* shortName;
    const char* longName;
};

constexpr std::array<UnitName<ZDistance::Unit>, 8> kLinear{{
    {ZDistance::kMillimeters, "mm", "millimeter"},
    {ZDistance::kCentimeters, "cm", "centimeter"},
    {ZDistance::kMeters, "m", "meter"},
    {ZDistance::kKilometers, "km", "kilometer"},
    {ZDistance::kInches, "in", "inch"},
    {ZDistance::kFeet, "ft", "foot"},
    {ZDistance::kYards, "yd", "yard"},
    {ZDistance::kMiles, "mi", "mile"},
}};

constexpr std::array<UnitName<ZAngle::Unit>, 4> kAngular{{
    {ZAngle::kDegrees, "deg", "degree"},
    {ZAngle::kRadians, "rad", "radian"},
    {ZAngle::kAngMinutes, "min", "minute"},
    {ZAngle::kAngSeconds, "sec", "second"},
}};

constexpr std::array<UnitName<ZTime::Unit>, 11> kTime{{
    {ZTime::kFilm, "film", "24fps"},
    {ZTime::kGames, "game", "15fps"},
    {ZTime::kPALFrame, "pal", "25fps"},
    {ZTime::kNTSCFrame, "ntsc", "30fps"},
    {ZTime::kShowScan, "show", "48fps"},
    {ZTime::kPALField, "palf", "50fps"},
    {ZTime::kNTSCField, "ntscf", "60fps"},
    {ZTime::kHours, "hour", "hours"},
    {ZTime::kMinutes, "min", "minutes"},
    {ZTime::kSeconds, "sec", "seconds"},
    {ZTime::kMilliseconds, "millisec", "milliseconds"},
}};

template <typename Unit, std::size_t N>
const char* nameOf(const std::array<UnitName<Unit>, N>& table, Unit unit) {
    for (const auto& entry : table)
        if (entry.unit == unit)
            return entry.shortName;
    return "";
}

template <typename Unit, std::size_t N>
std::optional<Unit> unitOf(const std::array<UnitName<Unit>, N>& table, std::string_view name) {
    for (const auto& entry : table)
        if (name == entry.shortName || name == entry.longName)
            return entry.unit;
    return std::nullopt;
}

} // namespace

const char* linearUnitName(ZDistance::Unit unit) {
    return nameOf(kLinear, unit);
}

std::optional<ZDistance::Unit> linearUnitNamed(std::string_view name) {
    return unitOf(kLinear, name);
}

const char* angularUnitName(ZAngle::Unit unit) {
    return nameOf(kAngular, unit);
}

std::optional<ZAngle::Unit> angularUnitNamed(std::string_view name) {
    return unitOf(kAngular, name);
}

const char* timeUnitName(ZTime::Unit unit) {
    return nameOf(kTime, unit);
}

std::optional<ZTime::Unit> timeUnitNamed(std::string_view name) {
    return unitOf(kTime, name);
}

} // namespace oz::scene
