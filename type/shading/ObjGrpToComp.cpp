#include "shading/ObjGrpToComp.h"

namespace type {

void* objGrpToComp::creator() {
    return new objGrpToComp;
}

ZStatus objGrpToComp::initialize() {
    return ZStatus::kSuccess;
}

} // namespace type
