#pragma once

#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPxNode.h>

namespace oz {
class Node;
}

namespace oz::nodes {

// Base of the built-in DAG node classes, transforms and shapes. Their types derive from the
// abstract type "dagNode", which gives them `worldMatrix[]`; element 0 places the node in the
// world (the DAG has no instancing, so there are no other elements).
class DagNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "dagNode";
    static constexpr unsigned int kId = 0x4441474eu; // "DAGN"
    static ZObject worldMatrix;

    static ZStatus initialize();

    // A world matrix changes with those above it: when ours is dirtied, so are the children's.
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;

protected:
    // Writes `matrix` as worldMatrix[0] and marks the array clean.
    static ZStatus setWorldMatrix(ZDataBlock& block, const ZMatrix& matrix);
    Node& graphNode() const;
};

} // namespace oz::nodes
