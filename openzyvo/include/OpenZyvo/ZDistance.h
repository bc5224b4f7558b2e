#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>

// A length in a unit. The graph stores lengths in centimetres.
class OZ_API ZDistance {
public:
    enum Unit {
        kInvalid = 0,
        kInches,
        kFeet,
        kYards,
        kMiles,
        kMillimeters,
        kCentimeters,
        kKilometers,
        kMeters,
        kLast
    };

    ZDistance() = default;
    explicit ZDistance(double value, Unit unit = kCentimeters)
        : m_value(value)
        , m_unit(unit) {}

    double value() const { return m_value; }
    Unit unit() const { return m_unit; }
    double as(Unit unit, ZStatus* status = nullptr) const;
    double asCentimeters() const { return as(kCentimeters); }
    ZStatus setValue(double value) {
        m_value = value;
        return ZStatus::kSuccess;
    }
    ZStatus setUnit(Unit unit);

    // The unit lengths are shown in; the graph itself always works in centimetres.
    static Unit uiUnit();
    static ZStatus setUIUnit(Unit unit);
    static Unit internalUnit() { return kCentimeters; }

private:
    double m_value = 0.0;
    Unit m_unit = kCentimeters;
};
