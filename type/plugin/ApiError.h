#pragma once

#include <OpenZyvo/ZStatus.h>
#include <source_location>

namespace type {

// The plug-in's one way of reporting a host call that failed: a line naming
// the source unit and the line of the call on the error stream, then the
// host's own description of the status. Returns the status, so that callers
// can write `return reportApiError(status, kUnit);`.
ZStatus reportApiError(const ZStatus& status, const char* sourceUnit,
                       std::source_location where = std::source_location::current());

} // namespace type
