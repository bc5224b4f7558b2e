#pragma once

#include <OpenZyvo/ZStatus.h>

namespace type {

// The line of a call, taken where the call is written. The plug-in reports
// units by name and calls by line only, which every compiler it is built with
// can give (std::source_location is not there in all of them).
class SourceLine {
public:
    static constexpr SourceLine current(unsigned int line = __builtin_LINE()) { return SourceLine(line); }
    constexpr unsigned int line() const { return m_line; }

private:
    explicit constexpr SourceLine(unsigned int line)
        : m_line(line) {}
    unsigned int m_line;
};

// The plug-in's one way of reporting a host call that failed: a line naming
// the source unit and the line of the call on the error stream, then the
// host's own description of the status. Returns the status, so that callers
// can write `return reportApiError(status, kUnit);`.
ZStatus reportApiError(const ZStatus& status, const char* sourceUnit,
                       SourceLine where = SourceLine::current());

} // namespace type
