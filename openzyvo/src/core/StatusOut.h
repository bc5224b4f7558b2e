#pragma once

#include <OpenZyvo/ZStatus.h>

namespace oz {

// Stores `value` through an optional status out-parameter: API calls take a null pointer when the
// caller does not want to know.
inline void setStatus(ZStatus* status, ZStatus value) {
    if (status)
        *status = value;
}

} // namespace oz
