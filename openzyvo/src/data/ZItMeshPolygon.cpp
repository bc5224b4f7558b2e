#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"

#include <OpenZyvo/ZItMeshPolygon.h>
#include <algorithm>

using oz::MeshElement;

namespace {
constexpr MeshElement kFace = MeshElement::kFace;
} // namespace

ZItMeshPolygon::ZItMeshPolygon(const ZObject& polyObject, ZStatus* status)
    : m_object(polyObject)
    , m_target(oz::meshTargetOf(polyObject)) {
    oz::setStatus(status, oz::cursorStatus(m_target));
}

ZStatus ZItMeshPolygon::reset() {
    return oz::resetCursor(m_target, m_index);
}

bool ZItMeshPolygon::isDone(ZStatus* status) const {
    return oz::cursorDone(m_target, kFace, m_index, status);
}

ZStatus ZItMeshPolygon::next() {
    return oz::advanceCursor(m_target, kFace, m_index);
}

int ZItMeshPolygon::index(ZStatus* status) const {
    return oz::cursorIndex(m_target, m_index, status);
}

int ZItMeshPolygon::count(ZStatus* status) const {
    return oz::elementCount(m_target, kFace, status);
}

ZStatus ZItMeshPolygon::setIndex(int index, int& prevIndex) {
    return oz::moveCursor(m_target, kFace, m_index, index, prevIndex);
}

int ZItMeshPolygon::polygonVertexCount(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, status);
    return mesh ? static_cast<int>(mesh->faceVertices(m_index).size()) : 0;
}

ZStatus ZItMeshPolygon::getVertices(ZIntArray& vertices) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    const auto ids = mesh->faceVertices(m_index);
    vertices.asVector().assign(ids.begin(), ids.end());
    return ZStatus::kSuccess;
}

int ZItMeshPolygon::vertexIndex(int localIndex, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, status);
    const auto ids = mesh ? mesh->faceVertices(m_index) : std::span<const int32_t>();
    if (localIndex < 0 || static_cast<size_t>(localIndex) >= ids.size()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return -1;
    }
    return ids[static_cast<size_t>(localIndex)];
}

ZStatus ZItMeshPolygon::getPoints(ZPointArray& points, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    const auto ids = mesh->faceVertices(m_index);
    points.setLength(static_cast<unsigned int>(ids.size()));
    for (size_t i = 0; i < ids.size(); ++i)
        points[static_cast<unsigned int>(i)] =
            transform->pointToSpace(mesh->points()[static_cast<size_t>(ids[i])]);
    return ZStatus::kSuccess;
}

ZPoint ZItMeshPolygon::point(int localIndex, ZSpace::Space space, ZStatus* status) const {
    const int vertex = vertexIndex(localIndex, status);
    const auto transform = vertex >= 0 ? oz::SpaceTransform::make(*m_target, space) : std::nullopt;
    if (!transform) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZPoint();
    }
    return transform->pointToSpace(*oz::readMesh(m_target, status)->point(vertex));
}

ZStatus ZItMeshPolygon::getEdges(ZIntArray& edges) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    const auto row = mesh->topology()->faceEdges[m_index];
    edges.asVector().assign(row.begin(), row.end());
    return ZStatus::kSuccess;
}

ZStatus ZItMeshPolygon::getConnectedFaces(ZIntArray& faces) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    const auto topology = mesh->topology();
    auto& out = faces.asVector();
    out.clear();
    for (const int32_t edge : topology->faceEdges[m_index]) {
        for (const int32_t face : topology->edgeFaces[edge]) {
            if (face != m_index)
                out.push_back(face);
        }
    }
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    return ZStatus::kSuccess;
}

ZStatus ZItMeshPolygon::getNormal(ZVector& normal, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    normal = transform->normalToSpace(*mesh->faceNormal(m_index));
    return ZStatus::kSuccess;
}

ZPoint ZItMeshPolygon::center(ZSpace::Space space, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, status);
    const auto transform = mesh ? oz::SpaceTransform::make(*m_target, space) : std::nullopt;
    if (!transform) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZPoint();
    }
    const auto outer = mesh->outerLoop(m_index);
    oz::mesh::Point3 sum;
    for (const int32_t v : outer)
        sum += mesh->points()[static_cast<size_t>(v)];
    return transform->pointToSpace(sum * (1.0 / static_cast<double>(outer.size())));
}

ZStatus ZItMeshPolygon::numTriangles(int& triangleCount) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (mesh)
        triangleCount = static_cast<int>(mesh->triangulation()->faceTriangles(m_index).size());
    return status;
}

bool ZItMeshPolygon::hasColor(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, status);
    if (!mesh || !mesh->hasVertexColors())
        return false;
    const auto ids = mesh->faceVertices(m_index);
    return std::any_of(ids.begin(), ids.end(), [&](int32_t v) { return mesh->vertexColor(v).has_value(); });
}

ZStatus ZItMeshPolygon::getColor(ZColor& color) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::meshAt(m_target, kFace, m_index, &status);
    if (!mesh)
        return status;
    ZColor sum(0.0f, 0.0f, 0.0f, 0.0f);
    int coloured = 0;
    for (const int32_t v : mesh->faceVertices(m_index)) {
        if (const auto c = mesh->vertexColor(v)) {
            sum = ZColor(sum.r + c->r, sum.g + c->g, sum.b + c->b, sum.a + c->a);
            ++coloured;
        }
    }
    if (coloured == 0)
        return ZStatus::kNotFound;
    const float scale = 1.0f / static_cast<float>(coloured);
    color = ZColor(sum.r * scale, sum.g * scale, sum.b * scale, sum.a * scale);
    return ZStatus::kSuccess;
}
