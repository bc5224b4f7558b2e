#pragma once

#include <OpenZyvo/ZString.h>

namespace oz {

// Messages of the graph for the user, on standard error with the host's
// prefixes.
void reportWarning(const ZString& text);
void reportError(const ZString& text);

} // namespace oz
