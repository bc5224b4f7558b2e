#include "interaction/TypeManip.h"

namespace type {

void* typeManip::creator() {
    return new typeManip;
}

ZStatus typeManip::initialize() {
    return ZStatus::kSuccess;
}

} // namespace type
