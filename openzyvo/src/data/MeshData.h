#pragma once

#include "data/GeometryData.h"
#include "data/MeshTarget.h"
#include "mesh/Mesh.h"

#include <memory>

namespace oz {

// A mesh as a data value: the kernel mesh and the object groups that index into it. Copies behave
// as value copies of both, and cost little: the mesh shares its columns until one side writes, and
// the groups share their member lists, which are never edited in place.
class MeshData final : public GeometryData, public MeshTarget {
public:
    ZFn::Type apiType() const override { return ZFn::kMeshData; }
    ZFnData::Type dataType() const override { return ZFnData::kMesh; }
    std::shared_ptr<Data> clone() const override { return std::make_shared<MeshData>(*this); }

    int64_t elementCount(ZFn::Type componentKind) const override {
        switch (componentKind) {
        case ZFn::kMeshVertComponent:
            return mesh.vertexCount();
        case ZFn::kMeshEdgeComponent:
            return mesh.edgeCount();
        case ZFn::kMeshPolygonComponent:
            return mesh.faceCount();
        default:
            return 0;
        }
    }

    const MeshData* meshForRead() override { return this; }
    MeshData* meshForWrite() override { return this; }
    void meshEdited(Edit) override {}
    ZMatrix worldMatrix() const override { return ZMatrix(); }

    mesh::Mesh mesh;
};

} // namespace oz
