#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace oz::nodes {

// A shading group: the set of geometry that one surface shader paints. A member is an object
// group of a shape (`instObjGroups[0].objectGroups[j]` connected to an element of
// `dagSetMembers`), which brings the faces of the object group its `objectGroupId` names.
// `groupNodes[]` keep the groupId nodes of those members; `surfaceShader` is the colour of the
// shader (usually connected from its `outColor`).
class ShadingEngineNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "shadingEngine";
    static constexpr unsigned int kId = 0x53475250u; // "SGRP"

    // dagSetMembers[] carries the member's objectGroupId and objectGrpColor.
    static ZObject dagSetMembers, memberGroupId, memberGroupColor;
    static ZObject groupNodes;
    static ZObject memberWireframeColor;
    static ZObject surfaceShader;

    static ZPxNode* creator() { return new ShadingEngineNode; }
    static ZStatus initialize();
};

} // namespace oz::nodes
