#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"
#include "data/VertexPosition.h"

#include <OpenZyvo/ZItMeshVertex.h>
#include <algorithm>

using oz::MeshElement;

namespace {
constexpr MeshElement kVertex = MeshElement::kVertex;

ZStatus copyRow(std::span<const int32_t> row, ZIntArray& out) {
    out.asVector().assign(row.begin(), row.end());
    return ZStatus::kSuccess;
}
} // namespace

ZItMeshVertex::ZItMeshVertex(const ZObject& polyObject, ZStatus* status)
    : m_object(polyObject)
    , m_target(oz::meshTargetOf(polyObject)) {
    oz::setStatus(status, oz::cursorStatus(m_target));
}

ZStatus ZItMeshVertex::reset() {
    return oz::resetCursor(m_target, m_index);
}

bool ZItMeshVertex::isDone(ZStatus* status) const {
    return oz::cursorDone(m_target, kVertex, m_index, status);
}

ZStatus ZItMeshVertex::next() {
    return oz::advanceCursor(m_target, kVertex, m_index);
}

int ZItMeshVertex::index(ZStatus* status) const {
    return oz::cursorIndex(m_target, m_index, status);
}

int ZItMeshVertex::count(ZStatus* status) const {
    return oz::elementCount(m_target, kVertex, status);
}

ZStatus ZItMeshVertex::setIndex(int index, int& prevIndex) {
    return oz::moveCursor(m_target, kVertex, m_index, index, prevIndex);
}

ZPoint ZItMeshVertex::position(ZSpace::Space space, ZStatus* status) const {
    return oz::vertexPosition(m_target, m_index, space, status);
}

ZStatus ZItMeshVertex::setPosition(const ZPoint& point, ZSpace::Space space) {
    return oz::setVertexPosition(m_target, m_index, point, space);
}

ZStatus ZItMeshVertex::getNormal(ZVector& normal, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    normal = transform->normalToSpace(*mesh->vertexNormal(m_index));
    return ZStatus::kSuccess;
}

ZStatus ZItMeshVertex::getConnectedVertices(ZIntArray& vertexList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    return mesh ? copyRow(mesh->topology()->vertexVertices[m_index], vertexList) : status;
}

ZStatus ZItMeshVertex::getConnectedFaces(ZIntArray& faceList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    return mesh ? copyRow(mesh->topology()->vertexFaces[m_index], faceList) : status;
}

ZStatus ZItMeshVertex::getConnectedEdges(ZIntArray& edgeList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    return mesh ? copyRow(mesh->topology()->vertexEdges[m_index], edgeList) : status;
}

ZStatus ZItMeshVertex::numConnectedEdges(int& edgeCount) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    if (mesh)
        edgeCount = static_cast<int>(mesh->topology()->vertexEdges[m_index].size());
    return status;
}

ZStatus ZItMeshVertex::numConnectedFaces(int& faceCount) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    if (mesh)
        faceCount = static_cast<int>(mesh->topology()->vertexFaces[m_index].size());
    return status;
}

bool ZItMeshVertex::onBoundary(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, status);
    if (!mesh)
        return false;
    const auto topology = mesh->topology();
    const auto edges = topology->vertexEdges[m_index];
    return std::any_of(edges.begin(), edges.end(),
                       [&](int32_t e) { return topology->edgeFaces[e].size() == 1; });
}

bool ZItMeshVertex::hasColor(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, status);
    return mesh && mesh->vertexColor(m_index).has_value();
}

ZStatus ZItMeshVertex::getColor(ZColor& color) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kVertex, m_index, &status);
    if (!mesh)
        return status;
    const auto vertexColor = mesh->vertexColor(m_index);
    if (!vertexColor)
        return ZStatus::kNotFound;
    color = oz::toColor(*vertexColor);
    return ZStatus::kSuccess;
}
