#pragma once

#include "data/MeshAccess.h"

#include <cstdint>

namespace oz {

enum class MeshElement { kVertex, kEdge, kFace };

inline int32_t elementCount(const mesh::Mesh& mesh, MeshElement element) {
    switch (element) {
    case MeshElement::kVertex:
        return mesh.vertexCount();
    case MeshElement::kEdge:
        return mesh.edgeCount();
    case MeshElement::kFace:
        return mesh.faceCount();
    }
    return 0;
}

// The count the mesh iterators walk; 0 (with a failed status) when the target has no mesh.
inline int32_t elementCount(MeshTarget* target, MeshElement element, ZStatus* status) {
    const mesh::Mesh* mesh = readMesh(target, status);
    return mesh ? elementCount(*mesh, element) : 0;
}

// The mesh when `index` names one of its elements: what every query of an iterator's current
// element starts with. Null, with a failed status, once the iterator is done.
inline const mesh::Mesh* meshAt(MeshTarget* target, MeshElement element, int32_t index, ZStatus* status) {
    const mesh::Mesh* mesh = readMesh(target, status);
    if (mesh && (index < 0 || index >= elementCount(*mesh, element))) {
        setStatus(status, ZStatus::kInvalidParameter);
        return nullptr;
    }
    return mesh;
}

// Moves an iterator's index to `index` when that names an element.
inline ZStatus moveIndex(MeshTarget* target, MeshElement element, int32_t& current, int index,
                         int& prevIndex) {
    ZStatus status;
    if (!meshAt(target, element, index, &status))
        return status;
    prevIndex = current;
    current = index;
    return ZStatus::kSuccess;
}

} // namespace oz
