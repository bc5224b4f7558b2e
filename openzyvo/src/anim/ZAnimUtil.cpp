#include "anim/AnimCurveNode.h"
#include "anim/CurveAttributes.h"
#include "core/StatusOut.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <OpenZyvoAnim/ZAnimUtil.h>

namespace {

// The curve whose output drives `plug` directly, or a null object.
ZObject drivingCurve(const ZPlug& plug) {
    const ZPlug source = plug.source();
    if (source.isNull())
        return ZObject();
    const ZObject node = source.node();
    const oz::anim::AnimCurveNode* curve = oz::anim::AnimCurveNode::from(node);
    if (!curve || !(source == oz::anim::CurveAttributes::of(curve->kind()).output))
        return ZObject();
    return node;
}

// Visits `plug`, its elements and its children.
void collect(const ZPlug& plug, ZObjectArray& curves, bool& found) {
    if (const ZObject curve = drivingCurve(plug); !curve.isNull()) {
        curves.append(curve);
        found = true;
    }
    if (plug.isArray()) {
        for (unsigned int i = 0, n = plug.numElements(); i < n; ++i)
            collect(plug.elementByPhysicalIndex(i), curves, found);
    } else if (plug.isCompound()) {
        for (unsigned int i = 0, n = plug.numChildren(); i < n; ++i)
            collect(plug.child(i), curves, found);
    }
}

} // namespace

bool ZAnimUtil::isAnimated(const ZPlug& plug, ZStatus* status) {
    ZObjectArray curves;
    return findAnimation(plug, curves, status);
}

bool ZAnimUtil::findAnimation(const ZPlug& plug, ZObjectArray& curves, ZStatus* status) {
    if (plug.isNull()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return false;
    }
    bool found = false;
    collect(plug, curves, found);
    oz::setStatus(status, ZStatus::kSuccess);
    return found;
}

bool ZAnimUtil::findAnimatedPlugs(const ZObject& node, ZPlugArray& plugs, ZStatus* status) {
    ZStatus result;
    const ZFnDependencyNode fn(node, &result);
    ZPlugArray connected;
    if (result)
        result = fn.getConnections(connected);
    bool found = false;
    for (unsigned int i = 0; result && i < connected.length(); ++i) {
        if (!drivingCurve(connected[i]).isNull()) {
            plugs.append(connected[i]);
            found = true;
        }
    }
    oz::setStatus(status, result);
    return found;
}
