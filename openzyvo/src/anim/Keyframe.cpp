#include "anim/Keyframe.h"

#include "anim/AnimCurveNode.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>

namespace oz::anim {
namespace {

// The plug's value as ZFnAnimCurve takes it for a curve of `type`.
double currentValue(const ZPlug& plug, ZFnAnimCurve::AnimCurveType type, ZStatus& status) {
    switch (type) {
    case ZFnAnimCurve::kAnimCurveTA:
        return plug.asAngle(&status).asRadians();
    case ZFnAnimCurve::kAnimCurveTL:
        return plug.asDistance(&status).asCentimeters();
    case ZFnAnimCurve::kAnimCurveTT:
        return plug.asTime(&status).as(ZTime::uiUnit());
    default:
        break;
    }
    return plug.asDouble(&status);
}

ZStatus keyLeaf(const ZPlug& plug, const ZTime& time, std::vector<KeyframeChange>* changes) {
    ZStatus status;
    const ZFnAnimCurve::AnimCurveType type = ZFnAnimCurve::curveTypeFor(plug, &status);
    if (!status)
        return status;
    if (type == ZFnAnimCurve::kAnimCurveUnknown)
        return ZStatus::kInvalidParameter;
    const double value = currentValue(plug, type, status);
    if (!status)
        return status;

    KeyframeChange change;
    ZFnAnimCurve fn(plug, &status);
    if (status) {
        const Curve* keys = nullptr;
        if (!(status = AnimCurveNode::from(fn.object())->curve(keys)))
            return status;
        change.before = *keys;
    } else if (status == ZStatus::kNotFound && !plug.isDestination()) {
        fn.create(plug, nullptr, &status);
        change.created = true;
    } else {
        return ZStatus::kInvalidParameter;
    }
    if (!status)
        return status;
    change.curve = fn.object();
    if (changes)
        changes->push_back(change);
    return fn.addKeyframe(time, value);
}

} // namespace

ZStatus setKeyframe(const ZPlug& plug, const ZTime& time, std::vector<KeyframeChange>* changes) {
    if (plug.isNull())
        return ZStatus::kInvalidParameter;
    if (!plug.isCompound() || plug.isArray())
        return plug.isKeyable() ? keyLeaf(plug, time, changes) : ZStatus::kInvalidParameter;
    bool keyed = false;
    for (unsigned int i = 0, n = plug.numChildren(); i < n; ++i) {
        const ZPlug child = plug.child(i);
        if (!plug.isKeyable() && !child.isKeyable())
            continue;
        if (ZStatus status = setKeyframe(child, time, changes); !status)
            return status;
        keyed = true;
    }
    return keyed ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
}

ZStatus undoKeyframes(const std::vector<KeyframeChange>& changes) {
    ZStatus result;
    for (auto it = changes.rbegin(); it != changes.rend(); ++it) {
        ZStatus status;
        if (it->created) {
            ZDGModifier modifier;
            if ((status = modifier.deleteNode(it->curve)))
                status = modifier.doIt();
        } else if (AnimCurveNode* node = AnimCurveNode::from(it->curve)) {
            status = node->setCurve(it->before);
        } else {
            status = ZStatus::kInvalidParameter;
        }
        if (result && !status)
            result = status;
    }
    return result;
}

} // namespace oz::anim
