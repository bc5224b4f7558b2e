#include "ui/ToolManager.h"

#include <OpenZyvoUI/Z3dView.h>
#include <cmath>

Z3dView Z3dView::active3dView(ZStatus* status) {
    if (status)
        *status = ZStatus::kSuccess;
    return Z3dView();
}

int Z3dView::portWidth() const {
    return oz::ui::ToolManager::instance().camera().width;
}

int Z3dView::portHeight() const {
    return oz::ui::ToolManager::instance().camera().height;
}

ZStatus Z3dView::viewToWorld(short x, short y, ZPoint& source, ZVector& direction) const {
    const oz::ui::ViewCamera& camera = oz::ui::ToolManager::instance().camera();
    if (!oz::ui::isUsable(camera))
        return ZStatus::kFailure;
    const oz::ui::ViewRay ray = oz::ui::rayThrough(camera, x, y);
    source = ray.source;
    direction = ray.direction;
    return ZStatus::kSuccess;
}

ZStatus Z3dView::worldToView(const ZPoint& point, short& x, short& y) const {
    const oz::ui::ViewCamera& camera = oz::ui::ToolManager::instance().camera();
    if (!oz::ui::isUsable(camera))
        return ZStatus::kFailure;
    const std::optional<ZPoint> pixel = oz::ui::project(camera, point);
    if (!pixel || std::abs(pixel->x) > 32767.0 || std::abs(pixel->y) > 32767.0)
        return ZStatus::kFailure;
    x = static_cast<short>(std::lround(pixel->x));
    y = static_cast<short>(std::lround(pixel->y));
    return ZStatus::kSuccess;
}
