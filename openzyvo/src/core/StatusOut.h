#pragma once

#include <OpenZyvo/ZStatus.h>

namespace oz {

// Stores `value` through an optional status out-parameter.
inline void setResult(ZStatus* status, ZStatus value) {
    if (status)
        *status = value;
}

} // namespace oz
