#include "NumberOption.h"

#include <climits>
#include <cmath>
#include <sstream>

namespace zyvo {

namespace {

// Shortest form: 100000, 0.001, -100.
template <typename Number> std::string written(Number value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

// The option's own conversion reads the value the same way, so what passes
// here is what the option holds.
template <typename Number> std::string rangeText(Number min, Number max) {
    return "from " + written(min) + " to " + written(max);
}

template <typename Number>
CLI::Validator within(Number min, Number max, const std::string& expected, const std::string& description) {
    return CLI::Validator(
        [min, max, expected](std::string& text) -> std::string {
            Number value = 0;
            if (!CLI::detail::lexical_cast(text, value) || !std::isfinite(static_cast<double>(value)) ||
                value < min || value > max)
                return expected + ", got " + text;
            return {};
        },
        description);
}

} // namespace

CLI::Validator numberFrom(double min, double max) {
    return within(min, max, "expected a number " + rangeText(min, max), rangeText(min, max));
}

CLI::Validator wholeNumberFrom(long min, long max) {
    return within(min, max, "expected a whole number " + rangeText(min, max), rangeText(min, max));
}

CLI::Validator wholeNumber() {
    return within<long>(INT_MIN, INT_MAX, "expected a whole number", "");
}

std::string wholeNumberRefusal(long min, long max, const std::string& given) {
    return "expected a whole number " + rangeText(min, max) + ", got " + given;
}

} // namespace zyvo
