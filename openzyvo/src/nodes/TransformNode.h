#pragma once

#include "nodes/DagNode.h"

namespace oz::nodes {

// A transform: places its children in its parent's space. Its local matrix applies scale, then
// rotation (Euler angles in `rotateOrder`), then translation; the world matrix follows with the
// parent's.
class TransformNode : public DagNode {
public:
    static constexpr const char* kTypeName = "transform";
    static constexpr unsigned int kId = 0x5846524du; // "XFRM"

    static ZObject translate, translateX, translateY, translateZ;
    static ZObject rotate, rotateX, rotateY, rotateZ;
    static ZObject scale, scaleX, scaleY, scaleZ;
    static ZObject rotateOrder;
    static ZObject matrix;

    static ZPxNode* creator() { return new TransformNode; }
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

private:
    static ZMatrix localMatrix(ZDataBlock& block, ZStatus& status);
};

} // namespace oz::nodes
