#include "nodes/DagNode.h"

#include "graph/Node.h"
#include "graph/NodeAccess.h"
#include "nodes/DagHierarchy.h"

#include <OpenZyvo/ZArrayDataBuilder.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnMatrixData.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <vector>

namespace oz::nodes {

ZObject DagNode::worldMatrix;

ZStatus DagNode::initialize() {
    ZFnTypedAttribute typed;
    ZStatus status;
    worldMatrix = typed.create("worldMatrix", "wm", ZFnData::kMatrix, ZObject::kNullObj, &status);
    if (!status)
        return status;
    typed.setArray(true);
    typed.setUsesArrayDataBuilder(true);
    typed.setWritable(false);
    typed.setStorable(false);
    return addAttribute(worldMatrix);
}

ZStatus DagNode::setDependentsDirty(const ZPlug& plug, ZPlugArray&) {
    if (plug == worldMatrix)
        for (Node* child : std::vector<Node*>(graphNode().dagChildren))
            dirtyWorldMatrix(*child);
    return ZStatus::kSuccess;
}

ZStatus DagNode::setWorldMatrix(ZDataBlock& block, const ZMatrix& matrix) {
    ZStatus status;
    ZArrayDataHandle array = block.outputArrayValue(worldMatrix, &status);
    if (!status)
        return status;
    ZArrayDataBuilder builder(&block, worldMatrix, 1, &status);
    if (!status)
        return status;
    ZDataHandle element = builder.addElement(0, &status);
    if (!status)
        return status;
    if (!(status = element.setZObject(ZFnMatrixData().create(matrix))))
        return status;
    if (!(status = array.set(builder)))
        return status;
    return array.setAllClean();
}

Node& DagNode::graphNode() const {
    return *NodeAccess::node(*this);
}

} // namespace oz::nodes
