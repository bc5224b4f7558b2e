#pragma once

#include <CLI/CLI.hpp>

namespace zyvo {

// Checks for numeric options: a finite number, or a whole one, from `min` to
// `max`. Both the help text and the refusal state the bounds as a user writes
// numbers, and the refusal shows the value given, so "--size: expected a
// number from 0.001 to 100000, got nan".
CLI::Validator numberFrom(double min, double max);
CLI::Validator wholeNumberFrom(long min, long max);

// Any whole number an int holds, for options whose bounds are only known
// once the runtime runs; those refuse with wholeNumberRefusal.
CLI::Validator wholeNumber();

// "expected a whole number from 1 to 100, got 0", as the checks above say it.
std::string wholeNumberRefusal(long min, long max, const std::string& given);

} // namespace zyvo
