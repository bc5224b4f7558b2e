#pragma once

#include <OpenZyvo/ZVector.h>

namespace oz {

// The axes of a camera, right-handed: it looks along -back, with right and up
// across the view.
struct CameraBasis {
    ZVector right;
    ZVector up;
    ZVector back;
};

// The axes of a camera on the side `towardEye` points to (any length; +Z
// when it has none), with the world's Y axis up. Looking straight along Y,
// right is the world's X.
CameraBasis cameraBasis(const ZVector& towardEye);

} // namespace oz
