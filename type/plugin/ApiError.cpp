#include "plugin/ApiError.h"

#include <iostream>

namespace type {

ZStatus reportApiError(const ZStatus& status, const char* sourceUnit, SourceLine where) {
    // Flushed before perror writes, so the two lines never swap places.
    std::cerr << "\nAPI error detected in " << sourceUnit << " at line " << where.line() << std::endl;
    status.perror("");
    return status;
}

} // namespace type
