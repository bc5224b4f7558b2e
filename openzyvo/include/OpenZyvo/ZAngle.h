#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>

// An angle in a unit. The graph stores angles in radians.
class OZ_API ZAngle {
public:
    enum Unit { kInvalid = 0, kRadians, kDegrees, kAngMinutes, kAngSeconds, kLast };

    ZAngle() = default;
    explicit ZAngle(double value, Unit unit = kRadians)
        : m_value(value)
        , m_unit(unit) {}

    double value() const { return m_value; }
    Unit unit() const { return m_unit; }
    double as(Unit unit, ZStatus* status = nullptr) const;
    double asRadians() const { return as(kRadians); }
    double asDegrees() const { return as(kDegrees); }
    ZStatus setValue(double value) {
        m_value = value;
        return ZStatus::kSuccess;
    }
    ZStatus setUnit(Unit unit);

    // The unit angles are shown in; the graph itself always works in radians.
    static Unit uiUnit();
    static ZStatus setUIUnit(Unit unit);
    static Unit internalUnit() { return kRadians; }

private:
    double m_value = 0.0;
    Unit m_unit = kRadians;
};
