#pragma once

#include "core/Object.h"
#include "data/MeshConversion.h"
#include "data/MeshData.h"
#include "data/MeshTarget.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPxNode.h>
#include <OpenZyvo/ZStatus.h>

namespace oz {

// The mesh target an object refers to (mesh data or a mesh shape node), or null.
// A shape is a graph node whose user class implements the target.
inline MeshTarget* meshTargetOf(const ZObject& object) {
    const auto& referent = ObjectAccess::get(object);
    if (!referent)
        return nullptr;
    if (auto* target = dynamic_cast<MeshTarget*>(referent.get()))
        return target;
    return dynamic_cast<MeshTarget*>(referent->userNode());
}

// The mesh to read through `target`, or null (with a failed status) when there is none.
inline const mesh::Mesh* readMesh(MeshTarget* target, ZStatus* status) {
    const MeshData* data = target ? target->meshForRead() : nullptr;
    setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? &data->mesh : nullptr;
}

// Runs `edit` (MeshData& -> ZStatus) on the mesh to write and reports a successful change.
template <class Edit> ZStatus editMesh(MeshTarget* target, MeshTarget::Edit kind, Edit&& edit) {
    MeshData* data = target ? target->meshForWrite() : nullptr;
    if (!data)
        return ZStatus::kInvalidParameter;
    const ZStatus status = edit(*data);
    if (status != ZStatus::kSuccess)
        return status;
    // Builders set uvs, colours and normals once the faces are complete, and the triangles are
    // what the host asks for next (to draw, export or cast rays): they are cut meanwhile.
    if (kind == MeshTarget::Edit::kAttributes)
        data->mesh.prepareTriangulation();
    target->meshEdited(kind);
    return status;
}

} // namespace oz
