#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"

#include <OpenZyvo/ZItMeshEdge.h>
#include <algorithm>
#include <iterator>

using oz::MeshElement;

namespace {
constexpr MeshElement kEdge = MeshElement::kEdge;
} // namespace

ZItMeshEdge::ZItMeshEdge(const ZObject& polyObject, ZStatus* status)
    : m_object(polyObject)
    , m_target(oz::meshTargetOf(polyObject)) {
    oz::setStatus(status, oz::cursorStatus(m_target));
}

ZStatus ZItMeshEdge::reset() {
    return oz::resetCursor(m_target, m_index);
}

bool ZItMeshEdge::isDone(ZStatus* status) const {
    return oz::cursorDone(m_target, kEdge, m_index, status);
}

ZStatus ZItMeshEdge::next() {
    return oz::advanceCursor(m_target, kEdge, m_index);
}

int ZItMeshEdge::index(ZStatus* status) const {
    return oz::cursorIndex(m_target, m_index, status);
}

int ZItMeshEdge::index(int whichVertex, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kEdge, m_index, status);
    if (!mesh || (whichVertex != 0 && whichVertex != 1)) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return -1;
    }
    return mesh->topology()->edgeVertices[static_cast<size_t>(m_index)][static_cast<size_t>(whichVertex)];
}

int ZItMeshEdge::count(ZStatus* status) const {
    return oz::elementCount(m_target, kEdge, status);
}

ZStatus ZItMeshEdge::setIndex(int index, int& prevIndex) {
    return oz::moveCursor(m_target, kEdge, m_index, index, prevIndex);
}

ZPoint ZItMeshEdge::point(int whichVertex, ZSpace::Space space, ZStatus* status) const {
    const int vertex = index(whichVertex, status);
    const auto transform = vertex >= 0 ? oz::SpaceTransform::make(*m_target, space) : std::nullopt;
    if (!transform) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZPoint();
    }
    return transform->pointToSpace(*oz::readMesh(m_target, status)->point(vertex));
}

ZPoint ZItMeshEdge::center(ZSpace::Space space, ZStatus* status) const {
    ZStatus ends;
    const ZPoint a = point(0, space, &ends);
    const ZPoint b = point(1, space, &ends);
    oz::setStatus(status, ends);
    return ends ? ZPoint((a.x + b.x) * 0.5, (a.y + b.y) * 0.5, (a.z + b.z) * 0.5) : ZPoint();
}

double ZItMeshEdge::length(ZSpace::Space space, ZStatus* status) const {
    ZStatus ends;
    const ZPoint a = point(0, space, &ends);
    const ZPoint b = point(1, space, &ends);
    oz::setStatus(status, ends);
    return ends ? a.distanceTo(b) : 0.0;
}

ZStatus ZItMeshEdge::getConnectedFaces(ZIntArray& faceList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kEdge, m_index, &status);
    if (!mesh)
        return status;
    const auto faces = mesh->topology()->edgeFaces[m_index];
    faceList.asVector().assign(faces.begin(), faces.end());
    return ZStatus::kSuccess;
}

ZStatus ZItMeshEdge::numConnectedFaces(int& faceCount) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kEdge, m_index, &status);
    if (mesh)
        faceCount = static_cast<int>(mesh->topology()->edgeFaces[m_index].size());
    return status;
}

ZStatus ZItMeshEdge::getConnectedEdges(ZIntArray& edgeList) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kEdge, m_index, &status);
    if (!mesh)
        return status;
    const auto topology = mesh->topology();
    const auto [a, b] = topology->edgeVertices[static_cast<size_t>(m_index)];
    const auto aEdges = topology->vertexEdges[a];
    const auto bEdges = topology->vertexEdges[b];
    auto& out = edgeList.asVector();
    out.clear();
    std::set_union(aEdges.begin(), aEdges.end(), bEdges.begin(), bEdges.end(), std::back_inserter(out));
    std::erase(out, m_index);
    return ZStatus::kSuccess;
}

bool ZItMeshEdge::onBoundary(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kEdge, m_index, status);
    return mesh && mesh->topology()->edgeFaces[m_index].size() == 1;
}
