#include "NumberOption.h"

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
template <typename Number> CLI::Validator within(Number min, Number max, const std::string& kind) {
    const std::string range = "from " + written(min) + " to " + written(max);
    return CLI::Validator(
        [min, max, expected = "expected " + kind + " " + range](std::string& text) -> std::string {
            Number value = 0;
            if (!CLI::detail::lexical_cast(text, value) || !std::isfinite(static_cast<double>(value)) ||
                value < min || value > max)
                return expected + ", got " + text;
            return {};
        },
        range);
}

} // namespace

CLI::Validator numberFrom(double min, double max) {
    return within(min, max, "a number");
}

CLI::Validator wholeNumberFrom(long min, long max) {
    return within(min, max, "a whole number");
}

} // namespace zyvo
