#include <OpenZyvoRender/ZPxDrawOverride.h>

namespace ZHWRender {

ZPxDrawOverride::~ZPxDrawOverride() = default;

bool ZPxDrawOverride::isBounded(const ZDagPath&) const {
    return false;
}

ZBoundingBox ZPxDrawOverride::boundingBox(const ZDagPath&) const {
    return ZBoundingBox();
}

} // namespace ZHWRender
