#include "anim/AnimCurveNode.h"
#include "anim/CurveAttributes.h"
#include "anim/TimeNode.h"
#include "graph/NodeTypeRegistry.h"

#include <cstdio>

namespace oz::anim {
namespace {

void reportFailure(const ZString& error) {
    std::fprintf(stderr, "Built-in node type could not be registered: %s\n", error.asChar());
}

// The time and animation curve types are the host's own: they register when
// the runtime library loads, as a plug-in's would when it is loaded.
struct Registration {
    Registration() {
        NodeTypeRegistry& registry = NodeTypeRegistry::instance();
        ZString error;
        NodeTypeInfo time;
        time.name = TimeNode::kTypeName;
        time.id = TimeNode::kId;
        time.creator = TimeNode::creator;
        time.initializer = TimeNode::initialize;
        time.apiType = ZFn::kTime;
        if (!registry.registerType(std::move(time), &error))
            reportFailure(error);

        NodeTypeInfo base;
        base.name = AnimCurveNode::kBaseTypeName;
        base.id = AnimCurveNode::kBaseId;
        base.initializer = CurveAttributes::initializeCommon;
        base.apiType = ZFn::kAnimCurve;
        base.abstract = true;
        if (!registry.registerType(std::move(base), &error))
            reportFailure(error);

        for (int k = 0; k < kCurveKindCount; ++k) {
            const auto kind = static_cast<CurveKind>(k);
            NodeTypeInfo curve;
            curve.name = info(kind).typeName;
            curve.id = info(kind).id;
            curve.creator = [kind] {
                return new AnimCurveNode(kind);
            };
            curve.initializer = [kind] {
                return CurveAttributes::initializeTyped(kind);
            };
            curve.apiType = info(kind).apiType;
            curve.fnTypes = {ZFn::kAnimCurve};
            curve.parentTypeName = AnimCurveNode::kBaseTypeName;
            curve.classification = "animation";
            if (!registry.registerType(std::move(curve), &error))
                reportFailure(error);
        }
    }
};

const Registration registration;

} // namespace
} // namespace oz::anim
