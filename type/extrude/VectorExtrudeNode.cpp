#include "extrude/VectorExtrudeNode.h"

namespace type {

void* typeExtrude::creator() {
    return new typeExtrude;
}

ZStatus typeExtrude::initialize() {
    return ZStatus::kSuccess;
}

} // namespace type
