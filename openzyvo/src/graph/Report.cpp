#include "graph/Report.h"

#include <iostream>

namespace oz {

void reportWarning(const ZString& text) {
    std::cerr << "// Warning: " << text << '\n';
}

void reportError(const ZString& text) {
    std::cerr << "// Error: " << text << '\n';
}

} // namespace oz
