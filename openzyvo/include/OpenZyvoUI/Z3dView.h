#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>

// The host's 3-D view: a camera over a port of pixels. The host has one,
// headless when there is no screen; scripts set its camera with `viewCamera`.
class OZ_API Z3dView {
public:
    static Z3dView active3dView(ZStatus* status = nullptr);

    int portWidth() const;
    int portHeight() const;
    // The world-space ray through view point (x, y), in pixels from the
    // lower-left corner: its source on the near plane and a unit direction.
    ZStatus viewToWorld(short x, short y, ZPoint& source, ZVector& direction) const;
    // Where a world point lands in the port, in pixels; kFailure when it lies behind the camera.
    ZStatus worldToView(const ZPoint& point, short& x, short& y) const;
};
