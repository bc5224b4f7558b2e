#include "core/CameraBasis.h"

#include <cmath>

namespace oz {

namespace {

ZVector normalOr(const ZVector& v, const ZVector& fallback) {
    const double length = v.length();
    return length > 1e-20 && std::isfinite(length) ? v / length : fallback;
}

} // namespace

CameraBasis cameraBasis(const ZVector& towardEye) {
    CameraBasis basis;
    basis.back = normalOr(towardEye, ZVector(0.0, 0.0, 1.0));
    basis.right = normalOr(ZVector(0.0, 1.0, 0.0) ^ basis.back, ZVector(1.0, 0.0, 0.0));
    basis.up = basis.back ^ basis.right;
    return basis;
}

} // namespace oz
