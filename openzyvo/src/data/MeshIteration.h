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

// The cursor every mesh iterator keeps: an index over the elements of one kind of its target's
// mesh, from 0 up to the count, where the iterator is done. The iterator owns the index; these
// move and report it, so that each kind of iterator walks the same way.

// An iterator made over an object that is no mesh fails every call.
inline ZStatus cursorStatus(const MeshTarget* target) {
    return target ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
}

inline ZStatus resetCursor(const MeshTarget* target, int& index) {
    index = 0;
    return cursorStatus(target);
}

inline bool cursorDone(MeshTarget* target, MeshElement element, int index, ZStatus* status) {
    return index >= elementCount(target, element, status);
}

// Stays on the count once there: next() after the end is harmless.
inline ZStatus advanceCursor(MeshTarget* target, MeshElement element, int& index) {
    ZStatus status;
    if (index < elementCount(target, element, &status))
        ++index;
    return status;
}

inline int cursorIndex(const MeshTarget* target, int index, ZStatus* status) {
    setStatus(status, cursorStatus(target));
    return index;
}

// Moves the cursor to `index` when that names an element.
inline ZStatus moveCursor(MeshTarget* target, MeshElement element, int& current, int index, int& prevIndex) {
    ZStatus status;
    if (!meshAt(target, element, index, &status))
        return status;
    prevIndex = current;
    current = index;
    return ZStatus::kSuccess;
}

} // namespace oz
