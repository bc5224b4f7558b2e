#include "deformers/ChannelSampler.h"

#include <OpenZyvo/ZFnDependencyNode.h>

namespace type {

namespace {

bool driven(const ZPlug& plug) {
    ZStatus status;
    const bool destination = plug.isDestination(&status);
    return !status || destination;
}

// A curve evaluates at the context's time only while nothing drives its input.
bool curveOnTime(const ZFnAnimCurve& curve) {
    ZStatus status;
    const ZPlug input = ZFnDependencyNode(curve.object()).findPlug("input", true, &status);
    return status && !driven(input);
}

} // namespace

ChannelSampler::ChannelSampler(const ZPlug& channel) {
    ZStatus status;
    const bool child = channel.isChild(&status);
    if (!status || (child && driven(channel.parent())))
        return;
    if (!driven(channel)) {
        m_constant = channel.asDouble(&status);
        if (status)
            m_source = Source::Constant;
        return;
    }
    // A curve of another type than the channel's would go through a conversion first.
    const ZFnAnimCurve curve(channel, &status);
    if (status && curve.animCurveType() == ZFnAnimCurve::curveTypeFor(channel) && curveOnTime(curve) &&
        m_curve.setObject(curve.object()))
        m_source = Source::Curve;
}

ZStatus ChannelSampler::valueAt(const ZTime& time, double& value) const {
    switch (m_source) {
    case Source::Constant:
        value = m_constant;
        return ZStatus::kSuccess;
    case Source::Curve:
        return m_curve.evaluate(time, value);
    default:
        return ZStatus::kInvalidParameter;
    }
}

} // namespace type
