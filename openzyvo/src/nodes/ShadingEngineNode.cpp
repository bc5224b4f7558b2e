#include "nodes/ShadingEngineNode.h"

#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnMessageAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>

namespace oz::nodes {

ZObject ShadingEngineNode::dagSetMembers, ShadingEngineNode::memberGroupId,
    ShadingEngineNode::memberGroupColor;
ZObject ShadingEngineNode::groupNodes;
ZObject ShadingEngineNode::memberWireframeColor;
ZObject ShadingEngineNode::surfaceShader;

ZStatus ShadingEngineNode::initialize() {
    ZStatus status;
    ZFnNumericAttribute numeric;
    memberGroupId = numeric.create("memberGroupId", "mgi", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    memberGroupColor = numeric.create("memberGroupColor", "mgc", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    ZFnCompoundAttribute compound;
    dagSetMembers = compound.create("dagSetMembers", "dsm", &status);
    if (!status)
        return status;
    compound.addChild(memberGroupId);
    compound.addChild(memberGroupColor);
    compound.setArray(true);
    compound.setIndexMatters(true);

    ZFnMessageAttribute message;
    groupNodes = message.create("groupNodes", "gn", &status);
    if (!status)
        return status;
    message.setArray(true);

    memberWireframeColor =
        numeric.create("memberWireframeColor", "mwc", ZFnNumericData::kShort, -1.0, &status);
    if (!status)
        return status;
    surfaceShader = numeric.createColor("surfaceShader", "ss", &status);
    if (!status)
        return status;
    numeric.setDefault(0.5, 0.5, 0.5);

    for (const ZObject& attribute : {dagSetMembers, groupNodes, memberWireframeColor, surfaceShader})
        if (!(status = addAttribute(attribute)))
            return status;
    return ZStatus::kSuccess;
}

} // namespace oz::nodes
