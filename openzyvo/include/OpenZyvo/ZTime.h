#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>

// A time value in a unit. Frame-based units count frames at their rate.
class OZ_API ZTime {
public:
    enum Unit {
        kInvalid = 0,
        kHours,
        kMinutes,
        kSeconds,
        kMilliseconds, // 1000 per second
        kGames,        // 15 fps
        kFilm,         // 24 fps
        kPALFrame,     // 25 fps
        kNTSCFrame,    // 30 fps
        kShowScan,     // 48 fps
        kPALField,     // 50 fps
        kNTSCField,    // 60 fps
        kLast
    };

    ZTime()
        : ZTime(0.0) {}
    explicit ZTime(double value, Unit unit = uiUnit())
        : m_value(value)
        , m_unit(unit) {}

    double value() const { return m_value; }
    Unit unit() const { return m_unit; }
    double as(Unit unit) const;
    ZStatus setValue(double value) {
        m_value = value;
        return ZStatus::kSuccess;
    }
    // Changes the unit and keeps the number, as the host does.
    ZStatus setUnit(Unit unit);

    // Units per second of a unit (1/3600 for hours); 0 for kInvalid.
    static double unitsPerSecond(Unit unit);

    // The unit the host works in; new times default to it.
    static Unit uiUnit();
    static ZStatus setUIUnit(Unit unit);

    ZTime operator+(const ZTime& o) const { return ZTime(m_value + o.as(m_unit), m_unit); }
    ZTime operator-(const ZTime& o) const { return ZTime(m_value - o.as(m_unit), m_unit); }
    ZTime operator+(double v) const { return ZTime(m_value + v, m_unit); }
    ZTime operator-(double v) const { return ZTime(m_value - v, m_unit); }
    bool operator==(const ZTime& o) const { return seconds() == o.seconds(); }
    bool operator<(const ZTime& o) const { return seconds() < o.seconds(); }
    bool operator<=(const ZTime& o) const { return seconds() <= o.seconds(); }
    bool operator>(const ZTime& o) const { return seconds() > o.seconds(); }
    bool operator>=(const ZTime& o) const { return seconds() >= o.seconds(); }

private:
    double seconds() const { return as(kSeconds); }
    double m_value;
    Unit m_unit;
};
