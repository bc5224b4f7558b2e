#pragma once

#include <ctime>
#include <ostream>

namespace type {

// Whether the deformer timing diagnostics are asked for: TYPE_DEFORMER_TIMING
// set to 1 in the environment.
bool timingRequested();

// Writes the time one frame spent setting up and in the element tasks, in
// milliseconds of processor time, as the diagnostics print it.
void reportTiming(std::ostream& out, std::clock_t setup, std::clock_t thread);

} // namespace type
