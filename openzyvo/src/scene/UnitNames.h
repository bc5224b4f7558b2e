#pragma once

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZTime.h>
#include <optional>
#include <string_view>

namespace oz::scene {

// The names currentUnit and scene files give units: "cm", "deg", "film"...
// Long forms ("centimeter", "degree") are read too; the short form is
// what is written.
const char* linearUnitName(ZDistance::Unit unit);
std::optional<ZDistance::Unit> linearUnitNamed(std::string_view name);

const char* angularUnitName(ZAngle::Unit unit);
std::optional<ZAngle::Unit> angularUnitNamed(std::string_view name);

const char* timeUnitName(ZTime::Unit unit);
std::optional<ZTime::Unit> timeUnitNamed(std::string_view name);

} // namespace oz::scene
