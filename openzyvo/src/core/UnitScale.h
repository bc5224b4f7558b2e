#pragma once

#include "core/StatusOut.h"

#include <OpenZyvo/ZStatus.h>

namespace oz {

// The common body of the unit value types (angle, distance): each knows how many of its base unit
// one of its units holds, and 0 for a value that names no unit; the rest follows from that scale.
template <class Unit> class UnitScale {
public:
    using Scale = double (*)(Unit);

    explicit constexpr UnitScale(Scale scale)
        : m_scale(scale) {}

    bool known(Unit unit) const { return m_scale(unit) != 0.0; }

    double convert(double value, Unit from, Unit to, ZStatus* status) const {
        const double fromScale = m_scale(from), toScale = m_scale(to);
        const bool valid = fromScale != 0.0 && toScale != 0.0;
        setStatus(status, valid ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
        if (!valid)
            return 0.0;
        return from == to ? value : value * fromScale / toScale;
    }

    // Stores `unit` in `target` (a unit or an atomic unit) when it names one.
    template <class Target> ZStatus assign(Target& target, Unit unit) const {
        if (!known(unit))
            return ZStatus::kInvalidParameter;
        target = unit;
        return ZStatus::kSuccess;
    }

private:
    Scale m_scale;
};

} // namespace oz
