#include "scene/UnitConversion.h"

#include "graph/Attribute.h"

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZDistance.h>
#include <charconv>
#include <cmath>

namespace oz::scene {

namespace {

double shortestFloat(double stored) {
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, static_cast<float>(stored));
    double shown = stored;
    std::from_chars(text, written.ptr, shown);
    return shown;
}

} // namespace

double toUiUnits(const Attribute& attribute, double stored) {
    if (attribute.isFloat() && std::isfinite(stored))
        return shortestFloat(stored);
    if (attribute.kind != Attribute::Kind::Unit)
        return stored;
    switch (attribute.unitType) {
    case ZFnUnitAttribute::kAngle:
        return ZAngle(stored, ZAngle::kRadians).as(ZAngle::uiUnit());
    case ZFnUnitAttribute::kDistance:
        return ZDistance(stored, ZDistance::kCentimeters).as(ZDistance::uiUnit());
    default:
        return stored;
    }
}

double fromUiUnits(const Attribute& attribute, double shown) {
    if (attribute.kind != Attribute::Kind::Unit)
        return shown;
    switch (attribute.unitType) {
    case ZFnUnitAttribute::kAngle:
        return ZAngle(shown, ZAngle::uiUnit()).as(ZAngle::kRadians);
    case ZFnUnitAttribute::kDistance:
        return ZDistance(shown, ZDistance::uiUnit()).as(ZDistance::kCentimeters);
    default:
        return shown;
    }
}

} // namespace oz::scene
