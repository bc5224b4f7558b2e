#pragma once

#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"

namespace oz {

// Where the vertex iterators read and move one point: ZItGeometry and ZItMeshVertex walk the same
// vertices and must agree on spaces and failures.
inline ZPoint vertexPosition(MeshTarget* target, int32_t index, ZSpace::Space space, ZStatus* status) {
    const mesh::Mesh* mesh = meshAt(target, MeshElement::kVertex, index, status);
    const auto transform = mesh ? SpaceTransform::make(*target, space) : std::nullopt;
    if (!transform) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZPoint();
    }
    return transform->pointToSpace(mesh->points()[static_cast<size_t>(index)]);
}

inline ZStatus setVertexPosition(MeshTarget* target, int32_t index, const ZPoint& point,
                                 ZSpace::Space space) {
    const auto transform = target ? SpaceTransform::make(*target, space) : std::nullopt;
    if (!transform)
        return ZStatus::kInvalidParameter;
    return editMesh(target, MeshTarget::Edit::kPoints, [&](MeshData& data) {
        return toStatus(data.mesh.setPoint(index, transform->pointFromSpace(point)));
    });
}

} // namespace oz
