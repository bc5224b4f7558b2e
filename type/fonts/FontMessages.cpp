#include "fonts/FontMessages.h"

#include <OpenZyvo/ZStringResource.h>

namespace type {

ZString FontMessage::text() const {
    ZStatus status;
    // A failed lookup still returns the default text.
    const ZString format = ZStringResource::getString(id, status);
    if (arguments.empty())
        return format;
    ZString args[9];
    for (std::size_t i = 0; i < arguments.size() && i < 9; ++i)
        args[i] = arguments[i];
    ZString filled;
    filled.format(format, args[0], args[1], args[2], args[3], args[4], args[5], args[6], args[7], args[8]);
    return filled;
}

} // namespace type
