#pragma once

#include <OpenZyvo/ZTypes.h>

namespace oz::anim {

// What a curve's output is; the values are those of
// ZFnAnimCurve::AnimCurveType.
enum class CurveKind { kAngle = 0, kDistance, kTime, kUnitless };

constexpr int kCurveKindCount = 4;

struct CurveKindInfo {
    const char* typeName;
    unsigned int id;
    ZFn::Type apiType;
};

inline const CurveKindInfo& info(CurveKind kind) {
    static const CurveKindInfo table[kCurveKindCount] = {
        {"animCurveTA", 0x41435441u, ZFn::kAnimCurveTimeToAngular},
        {"animCurveTL", 0x4143544cu, ZFn::kAnimCurveTimeToDistance},
        {"animCurveTT", 0x41435454u, ZFn::kAnimCurveTimeToTime},
        {"animCurveTU", 0x41435455u, ZFn::kAnimCurveTimeToUnitless},
    };
    return table[static_cast<int>(kind)];
}

} // namespace oz::anim
