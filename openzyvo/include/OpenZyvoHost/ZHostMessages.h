#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <cstddef>
#include <string>
#include <vector>

namespace ZHost {

// The message log: what the runtime, plug-ins and scripts reported.

// Whether messages are shown on the terminal as they come (errors and
// warnings on standard error, with a "// Error: " or "// Warning: " prefix).
OZ_API void showMessages(bool shown);

// How many errors were ever reported; a host compares counts to tell whether
// something failed meanwhile.
OZ_API std::size_t errorCount();

// The texts of the errors reported after the first `errorsBefore`, oldest
// first, as far as the log still keeps them.
OZ_API std::vector<std::string> errorsSince(std::size_t errorsBefore);

} // namespace ZHost
