#pragma once

#include <OpenZyvo/ZMatrix.h>

namespace oz {

class MeshData;

// What ZFnMesh, the mesh iterators and ZItGeometry work on. Mesh data is its own target. A mesh
// shape node implements this by resolving to the mesh data it shows, so every mesh call works on
// nodes and data alike: the function sets find a target with a cross-cast from the ZObject's
// referent and never ask what kind of object it is.
class MeshTarget {
public:
    enum class Edit { kPoints, kTopology, kAttributes };

    virtual ~MeshTarget() = default;

    // The mesh to read, or null when there is none yet. Valid until the next call on the target.
    virtual const MeshData* meshForRead() = 0;
    // The mesh to change, or null when it cannot be changed. After a successful change the
    // caller reports what it changed through meshEdited (a shape marks its outputs dirty).
    virtual MeshData* meshForWrite() = 0;
    virtual void meshEdited(Edit edit) = 0;
    // Object to world space. Data alone has no place in a scene: its world space is object space.
    virtual ZMatrix worldMatrix() const = 0;
};

} // namespace oz
