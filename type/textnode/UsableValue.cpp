#include "textnode/UsableValue.h"

#include <cmath>
#include <sstream>

namespace type {

namespace {

// Shortest readable form: "nan", "inf", "1e+39", "100000".
ZString printed(double value) {
    std::ostringstream text;
    text << value;
    return ZString(text.str().c_str());
}

} // namespace

std::optional<FontMessage> unusableValue(const ZString& attribute, double value, const UsableRange& range) {
    if (std::isfinite(value) && value >= range.lowest && value <= range.highest)
        return std::nullopt;
    return FontMessage{fontMessages::kTypeUnusableValue,
                       {attribute, printed(value), printed(range.lowest), printed(range.highest)}};
}

} // namespace type
