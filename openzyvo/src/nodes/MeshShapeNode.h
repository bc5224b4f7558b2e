#pragma once

#include "data/MeshData.h"
#include "data/MeshTarget.h"
#include "nodes/DagNode.h"

#include <memory>

namespace oz::nodes {

// The mesh shape. `outMesh` is `inMesh` passed through: the mesh that flows in, or, while nothing
// is connected, the mesh the shape stores there itself (what ZFnMesh builds into a shape).
// `worldMesh[0]` is that mesh under the shape's world matrix. `instObjGroups[0].objectGroups[]`
// are the object groups that shading engines take as members, each naming an object group of the
// mesh data by its `objectGroupId`.
//
// As a mesh target it shows `outMesh` to the mesh function sets; edits through them go into the
// stored mesh, so they are refused while `inMesh` is connected.
class MeshShapeNode : public DagNode, public MeshTarget {
public:
    static constexpr const char* kTypeName = "mesh";
    static constexpr unsigned int kId = 0x4d455348u; // "MESH"

    static ZObject inMesh, outMesh, worldMesh;
    static ZObject instObjGroups, objectGroups, objectGroupId, objectGrpColor;

    static ZPxNode* creator() { return new MeshShapeNode; }
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    const MeshData* meshForRead() override;
    MeshData* meshForWrite() override;
    void meshEdited(Edit edit) override;
    ZMatrix worldMatrix() const override;

private:
    ZStatus computeWorldMesh(ZDataBlock& block);

    std::shared_ptr<MeshData> m_read;   // keeps what meshForRead handed out alive
    std::shared_ptr<MeshData> m_stored; // the stored mesh once this shape owns it alone
};

// Installs the maker of new mesh shapes that ZFnMesh uses when it builds under a transform.
void installMeshShapeCreator();

} // namespace oz::nodes
