#include "anim/TimeNode.h"

#include "anim/UiTime.h"
#include "core/StatusOut.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"
#include "graph/PlugRef.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPlug.h>

namespace oz::anim {

ZObject TimeNode::outTime;

ZStatus TimeNode::initialize() {
    ZFnUnitAttribute fn;
    ZStatus status;
    outTime = fn.create("outTime", "o", ZFnUnitAttribute::kTime, 0.0, &status);
    if (!status)
        return status;
    fn.setWritable(false);
    fn.setStorable(false);
    if (!(status = addAttribute(outTime)))
        return status;
    return NodeTypeRegistry::declareTimeDriven(outTime);
}

ZStatus TimeNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!(plug == outTime))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const ZTime now = block.context().getTime(&status);
    if (!status)
        return status;
    ZDataHandle out = block.outputValue(outTime, &status);
    if (!status)
        return status;
    out.set(uiTime(toSeconds(now)));
    out.setClean();
    return ZStatus::kSuccess;
}

ZObject TimeNode::sceneNode(ZStatus* status) {
    ZStatus result;
    ZObject node;
    if (Node* existing = Graph::instance().findNode(kSceneNodeName)) {
        if (existing->type->id == ZTypeId(kId))
            node = ObjectAccess::wrap(PlugAccess::sharedNode(*existing));
        else
            result = ZStatus::kFailure;
    } else {
        node = ZFnDependencyNode().create(kTypeName, kSceneNodeName, &result);
    }
    oz::setStatus(status, result);
    return result ? node : ZObject();
}

} // namespace oz::anim
