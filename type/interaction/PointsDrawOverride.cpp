#include "interaction/PointsDrawOverride.h"

#include "interaction/DisplayPoints.h"

namespace type {

ZHWRender::ZPxDrawOverride* pointsDrawOverride::creator(const ZObject& node) {
    return new pointsDrawOverride(node);
}

ZHWRender::ZUserData* pointsDrawOverride::prepareForDraw(const ZDagPath&, ZHWRender::ZUserData* oldData) {
    // The viewport keeps what we return and hands it back next time; reuse it.
    auto* data = dynamic_cast<PointsDrawData*>(oldData);
    if (!data)
        data = new PointsDrawData;
    data->points = displayPoints::points(node());
    return data;
}

bool pointsDrawOverride::isBounded(const ZDagPath&) const {
    return true;
}

ZBoundingBox pointsDrawOverride::boundingBox(const ZDagPath&) const {
    return boundsOf(displayPoints::points(node()));
}

} // namespace type
