#pragma once

#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace type {

// What the text generator needs from the host. A member left empty reads as
// "not available": Python fails, "percent" is not animated, and the clock is
// the system's.
struct TextGeneratorHost {
    // Runs statements in the host's Python interpreter; false when they raise.
    std::function<bool(const std::string& statements)> runPython;
    // Evaluates an expression in the same interpreter and returns str() of its
    // result, or nothing when it raises.
    std::function<std::optional<std::string>(const std::string& expression)> evaluatePython;
    // The values of the curve that animates "percent" at each of the given
    // times (in the current unit), or nothing when "percent" is not animated.
    std::function<std::optional<std::vector<double>>(const std::vector<double>& times)> percentAt;
    std::function<std::time_t()> now;
};

} // namespace type
