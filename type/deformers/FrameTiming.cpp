#include "deformers/FrameTiming.h"

#include <cstdlib>
#include <string_view>

namespace type {

namespace {

double milliseconds(std::clock_t ticks) {
    return 1000.0 * static_cast<double>(ticks) / CLOCKS_PER_SEC;
}

} // namespace

bool timingRequested() {
    const char* value = std::getenv("TYPE_DEFORMER_TIMING");
    return value && std::string_view(value) == "1";
}

void reportTiming(std::ostream& out, std::clock_t setup, std::clock_t thread) {
    out << "--------------------------\n"
        << "Setup:\t\t" << milliseconds(setup) << " ms\n"
        << "Thread:\t\t" << milliseconds(thread) << " ms" << std::endl;
}

} // namespace type
