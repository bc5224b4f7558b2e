#include "anim/AnimCurveNode.h"

#include "anim/CurveAttributes.h"
#include "anim/StoredKeys.h"
#include "anim/UiTime.h"
#include "graph/Graph.h"
#include "graph/NodeAccess.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>

namespace oz::anim {

void AnimCurveNode::postConstructor() {
    followEvaluationTime(true);
}

void AnimCurveNode::followEvaluationTime(bool follow) {
    if (Node* node = NodeAccess::node(*this))
        Graph::instance().setTimeDriven(*node, attributeOf(CurveAttributes::of(m_kind).output), follow);
}

ZStatus AnimCurveNode::connectionMade(const ZPlug& plug, const ZPlug&, bool asSrc) {
    if (!asSrc && plug == CurveAttributes::common.input) {
        m_inputConnected = true;
        followEvaluationTime(false);
    }
    return ZStatus::kUnknownParameter;
}

ZStatus AnimCurveNode::connectionBroken(const ZPlug& plug, const ZPlug&, bool asSrc) {
    if (!asSrc && plug == CurveAttributes::common.input) {
        m_inputConnected = false;
        followEvaluationTime(true);
    }
    return ZStatus::kUnknownParameter;
}

ZStatus AnimCurveNode::setDependentsDirty(const ZPlug& plug, ZPlugArray&) {
    const auto& typed = CurveAttributes::of(m_kind);
    if (!(plug == CurveAttributes::common.input) && !(plug == typed.output))
        m_stale = true;
    return ZStatus::kSuccess;
}

ZStatus AnimCurveNode::compute(const ZPlug& plug, ZDataBlock& block) {
    const auto& typed = CurveAttributes::of(m_kind);
    if (!(plug == typed.output))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    if (stale()) {
        StoredKeys stored;
        if (!(status = readKeys(block, m_kind, stored)) || !(status = stored.toCurve(m_curve, m_canonical)))
            return status;
        resolved();
    }
    const ZTime time = m_inputConnected ? block.inputValue(CurveAttributes::common.input, &status).asTime()
                                        : block.context().getTime(&status);
    if (!status)
        return status;
    const double value = m_curve.evaluate(toSeconds(time));
    ZDataHandle out = block.outputValue(typed.output, &status);
    if (!status)
        return status;
    switch (m_kind) {
    case CurveKind::kAngle:
        out.set(ZAngle(value));
        break;
    case CurveKind::kDistance:
        out.set(ZDistance(value));
        break;
    case CurveKind::kTime:
        out.set(uiTime(value));
        break;
    case CurveKind::kUnitless:
        out.set(value);
        break;
    }
    out.setClean();
    return ZStatus::kSuccess;
}

ZStatus AnimCurveNode::curve(const Curve*& curve) {
    if (stale()) {
        StoredKeys stored;
        ZStatus status = readKeys(thisZObject(), m_kind, stored);
        if (!status || !(status = stored.toCurve(m_curve, m_canonical)))
            return status;
        resolved();
    }
    curve = &m_curve;
    return ZStatus::kSuccess;
}

ZStatus AnimCurveNode::setCurve(const Curve& curve, std::size_t first, std::size_t last) {
    const Curve* current = nullptr;
    ZStatus status = this->curve(current);
    if (!status)
        return status;
    if (!m_canonical) {
        first = 0;
        last = SIZE_MAX;
    }
    if (!(status = writeKeys(thisZObject(), m_kind, curve, first, last))) {
        m_stale = true;
        return status;
    }
    // Writing dirtied the keys; what they now hold is `curve` itself.
    m_curve = curve;
    m_canonical = true;
    resolved();
    return ZStatus::kSuccess;
}

AnimCurveNode* AnimCurveNode::from(const ZObject& node) {
    if (!node.hasFn(ZFn::kAnimCurve))
        return nullptr;
    return dynamic_cast<AnimCurveNode*>(ZFnDependencyNode(node).userNode());
}

} // namespace oz::anim
