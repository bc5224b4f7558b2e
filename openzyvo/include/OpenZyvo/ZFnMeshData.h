#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnGeometryData.h>

// Function set of mesh data: a mesh held as a value, with its object groups. ZFnMesh reads and
// builds the mesh itself.
class OZ_API ZFnMeshData : public ZFnGeometryData {
public:
    ZFnMeshData() = default;
    explicit ZFnMeshData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kMeshData; }

    // A new mesh data object with an empty mesh and no groups; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
};
