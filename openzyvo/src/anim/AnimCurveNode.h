#pragma once

#include "anim/Curve.h"
#include "anim/CurveKind.h"

#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvo/ZTime.h>
#include <cstdint>

namespace oz::anim {

// An animation curve node: maps the time at `input` (the evaluation time
// while `input` is unconnected, so the output follows the scene's time and
// any context's time) through its keys to `output`. The keys live in
// attributes; the node keeps them resolved as a Curve and reads them again
// only after they changed. Time attributes hold numbers in the user's time
// unit, so keys keep their frame numbers when that unit changes, and the
// node reads them again then too.
class AnimCurveNode : public ZPxNode {
public:
    static constexpr const char* kBaseTypeName = "animCurve";
    static constexpr unsigned int kBaseId = 0x41435256u;

    explicit AnimCurveNode(CurveKind kind)
        : m_kind(kind) {}

    CurveKind kind() const { return m_kind; }

    void postConstructor() override;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus connectionMade(const ZPlug& plug, const ZPlug& otherPlug, bool asSrc) override;
    ZStatus connectionBroken(const ZPlug& plug, const ZPlug& otherPlug, bool asSrc) override;

    // The keys as the attributes hold them now.
    ZStatus curve(const Curve*& curve);
    // Stores `curve` as the node's keys; only keys in [first, last) differ
    // from those stored (besides the weighting and infinities).
    ZStatus setCurve(const Curve& curve, std::size_t first = 0, std::size_t last = SIZE_MAX);

    // The curve node behind a node object, or null.
    static AnimCurveNode* from(const ZObject& node);

private:
    void followEvaluationTime(bool follow);
    // Whether the resolved curve no longer matches the attributes.
    bool stale() const { return m_stale || m_unit != ZTime::uiUnit(); }
    void resolved() {
        m_stale = false;
        m_unit = ZTime::uiUnit();
    }

    CurveKind m_kind;
    Curve m_curve;
    bool m_stale = true;
    ZTime::Unit m_unit = ZTime::kInvalid; // the time unit the curve was read in
    // Element i of the key attributes is key i in time order.
    bool m_canonical = true;
    bool m_inputConnected = false;
};

} // namespace oz::anim
