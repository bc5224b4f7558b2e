#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPxNode.h>
#include <vector>

namespace type {

// The members of each object group of a mesh, in group order. A group whose
// component is not single-indexed (or that has none) keeps an empty list, so
// that indices still match the groups.
ZStatus objectGroupMembers(const ZObject& meshData, std::vector<std::vector<int>>& members);

// The "objectGrpToComp" node: passes a mesh through and publishes its object
// groups as face component lists, one array element per group, so that
// downstream nodes reach the cap, bevel and extrusion faces of an extruded
// mesh without knowing group ids.
class objGrpToComp : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C02;
    static constexpr const char* kTypeName = "objectGrpToComp";
    static constexpr const char* kSourceUnit = "objectGroupToComponents";

    static void* creator();
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    static ZObject outComponents;
    static ZObject outputMesh;
    static ZObject inputMesh;
    // Stored for scenes that set it; the mesh passes through without new uvs.
    static ZObject generatePlanarUVs;
};

} // namespace type
