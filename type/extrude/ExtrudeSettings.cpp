#include "extrude/ExtrudeSettings.h"

#include <algorithm>
#include <cmath>

namespace type {

namespace {

int divisions(int value) {
    return std::clamp(value, 1, kMaxDivisions);
}

// A value that is not a number counts as 0.
double distance(float value) {
    return std::isnan(value) ? 0.0 : std::clamp(static_cast<double>(value), -kMaxDistance, kMaxDistance);
}

} // namespace

ExtrudeSettings resolveExtrudeSettings(const ExtrudeAttributes& a) {
    ExtrudeSettings s;
    s.gridSize = std::clamp(a.gridSize, 1, kMaxGridSize);
    s.mode = a.mode == 0 ? OffsetMode::kDistanceField : OffsetMode::kNormals;
    s.bevelOffset = distance(a.bevelOffset);
    s.bevelStyle = resolveBevelStyle(a.bevelStyle, a.enableOuterBevel, a.enableFrontBevel);
    s.deleteCaps = a.deleteCaps;
    s.bevelDistance = distance(a.bevelDistance);
    s.bevelDivisions = divisions(a.bevelDivisions);
    s.backBevel = a.enableBackBevel;
    s.rearUsesFront = a.rearBevelUsesFront;
    s.backBevelDistance = distance(a.rearBevelUsesFront ? a.bevelDistance : a.backBevelDistance);
    s.backBevelDivisions = divisions(a.rearBevelUsesFront ? a.bevelDivisions : a.backBevelDivisions);
    s.backBevelOffset = distance(a.rearBevelUsesFront ? a.bevelOffset : a.backBevelOffset);
    s.extrusion = a.enableExtrusion;
    s.extrudeDistance = distance(a.extrudeDistance);
    s.extrudeDivisions = divisions(a.extrudeDivisions);
    s.extrudeOffset = distance(a.extrudeOffset);
    return s;
}

} // namespace type
