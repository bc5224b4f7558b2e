#include "ui/ManipDrag.h"

#include "ui/ManipContainerState.h"

#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZQuaternion.h>
#include <OpenZyvoUI/ZFnRotateManip.h>
#include <cmath>
#include <functional>

namespace oz::ui {

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

// The handle's first value, brought up to date from its plugs, changed by
// `change`, then every tied plug set from the values.
ZStatus drag(ZPxManipContainer& container, ManipKind kind, ZDGModifier& modifier,
             const std::function<ZStatus(Manipulator&, Triple&)>& change) {
    ManipContainerState& state = ManipContainerAccess::state(container);
    const std::shared_ptr<Manipulator> handle = state.child(kind);
    if (!handle)
        return ZStatus::kNotFound;
    if (const ZStatus pulled = state.pullFromPlugs(); !pulled)
        return pulled;
    if (const ZStatus changed = change(*handle, state.value(handle->firstValue)->value); !changed)
        return changed;
    if (const ZStatus pushed = state.pushToPlugs(modifier); !pushed)
        return pushed;
    if (const ZStatus done = modifier.doIt(); !done)
        return done;
    // As a redraw would: the handles show what the plugs now hold.
    return state.pullFromPlugs();
}

bool finite(const ZVector& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace

ZStatus dragMove(ZPxManipContainer& container, const ZVector& offset, ZDGModifier& modifier) {
    if (!finite(offset))
        return ZStatus::kInvalidParameter;
    return drag(container, ManipKind::FreePointTriad, modifier, [&](Manipulator&, Triple& point) {
        for (unsigned int i = 0; i < 3; ++i)
            point[i] += offset[i];
        return ZStatus(ZStatus::kSuccess);
    });
}

ZStatus dragRotate(ZPxManipContainer& container, const ZVector& axis, double degrees, ZDGModifier& modifier) {
    if (!finite(axis) || axis.length() < 1e-12 || !std::isfinite(degrees))
        return ZStatus::kInvalidParameter;
    return drag(container, ManipKind::Rotate, modifier, [&](Manipulator& handle, Triple& angles) {
        const ZMatrix current = ZEulerRotation(angles[0] * kRadiansPerDegree, angles[1] * kRadiansPerDegree,
                                               angles[2] * kRadiansPerDegree)
                                    .asMatrix();
        const ZMatrix turn = ZQuaternion(degrees * kRadiansPerDegree, axis.normal()).asMatrix();
        // Points are rows: the right-hand factor applies last, about the world's axes.
        const ZMatrix turned =
            handle.rotateMode == ZFnRotateManip::kWorldSpace ? current * turn : turn * current;
        const ZEulerRotation result = ZEulerRotation::decompose(turned, ZEulerRotation::kXYZ);
        angles = {result.x / kRadiansPerDegree, result.y / kRadiansPerDegree, result.z / kRadiansPerDegree};
        return ZStatus(ZStatus::kSuccess);
    });
}

ZStatus dragScale(ZPxManipContainer& container, const ZVector& factors, ZDGModifier& modifier) {
    if (!finite(factors))
        return ZStatus::kInvalidParameter;
    return drag(container, ManipKind::Scale, modifier, [&](Manipulator& handle, Triple& scale) {
        for (unsigned int i = 0; i < 3; ++i) {
            scale[i] *= factors[i];
            if (handle.snap)
                scale[i] = std::round(scale[i] / handle.snapIncrement) * handle.snapIncrement;
        }
        return ZStatus(ZStatus::kSuccess);
    });
}

} // namespace oz::ui
