#include "extrude/VectorExtrudeNode.h"

#include "extrude/ExtrudeHostSteps.h"

namespace type {

void* typeExtrude::creator() {
    return new typeExtrude;
}

void typeExtrude::postConstructor() {
    writeDefaultProfileCurves(thisZObject(), {extrudeCurve, frontBevelCurve, backBevelCurve}, kSourceUnit);
}

} // namespace type
