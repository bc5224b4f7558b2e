#pragma once

#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZTime.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>

namespace type {

// Reads one animation channel at the delayed times of many groups. A channel
// that nothing drives holds one value at every time, and one driven straight
// by an animation curve on time is that curve at each time; only a channel
// with another driver needs the graph evaluated in a context at each time.
class ChannelSampler {
public:
    explicit ChannelSampler(const ZPlug& channel);

    // Whether valueAt cannot answer and the plug must be read in a context at
    // the time instead.
    bool needsContext() const { return m_source == Source::Context; }
    ZStatus valueAt(const ZTime& time, double& value) const;

private:
    enum class Source { Constant, Curve, Context };

    Source m_source = Source::Context;
    double m_constant = 0.0;
    ZFnAnimCurve m_curve;
};

} // namespace type
