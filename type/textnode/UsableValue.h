#pragma once

#include "fonts/FontMessages.h"

#include <optional>

namespace type {

// The values a numeric setting of the type node can be used with, bounds
// included.
struct UsableRange {
    double lowest = 0.0;
    double highest = 0.0;
};

// The message for attribute `attribute` holding `value` when that is not a
// finite number inside `range`; nothing when the value is usable.
std::optional<FontMessage> unusableValue(const ZString& attribute, double value, const UsableRange& range);

} // namespace type
