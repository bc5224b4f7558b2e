#include "data/MeshAccess.h"
#include "data/SpaceTransform.h"

#include <OpenZyvo/ZFnMesh.h>
#include <vector>

using oz::MeshData;
using oz::MeshTarget;
using oz::mesh::Vector3;

namespace {

// The mean of the normals stored on the vertex's face-vertices.
Vector3 averageFaceVertexNormal(const oz::mesh::Mesh& mesh, int32_t vertex) {
    Vector3 sum;
    std::vector<Vector3> normals;
    for (const int32_t face : mesh.topology()->vertexFaces[vertex]) {
        mesh.faceVertexNormals(face, normals);
        const auto ids = mesh.faceVertices(face);
        for (size_t i = 0; i < ids.size(); ++i) {
            if (ids[i] == vertex)
                sum += normals[i];
        }
    }
    return oz::mesh::normalized(sum);
}

Vector3 averageFaceNormal(const oz::mesh::Mesh& mesh, int32_t vertex) {
    Vector3 sum;
    for (const int32_t face : mesh.topology()->vertexFaces[vertex])
        sum += *mesh.faceNormal(face);
    return oz::mesh::normalized(sum);
}

} // namespace

ZStatus ZFnMesh::getPolygonNormal(int polygonId, ZVector& normal, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    const auto n = mesh->faceNormal(polygonId);
    if (!transform || !n)
        return ZStatus::kInvalidParameter;
    normal = transform->normalToSpace(*n);
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getVertexNormal(int vertexId, bool angleWeighted, ZVector& normal,
                                 ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform || vertexId < 0 || vertexId >= mesh->vertexCount())
        return ZStatus::kInvalidParameter;
    Vector3 n;
    if (mesh->hasExplicitNormals())
        n = averageFaceVertexNormal(*mesh, vertexId);
    else if (angleWeighted)
        n = *mesh->vertexNormal(vertexId);
    else
        n = averageFaceNormal(*mesh, vertexId);
    normal = transform->normalToSpace(n);
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getFaceVertexNormals(int faceId, ZFloatVectorArray& normals, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    std::vector<Vector3> faceNormals;
    if (!transform || mesh->faceVertexNormals(faceId, faceNormals) != oz::mesh::Status::Success)
        return ZStatus::kInvalidParameter;
    normals.setLength(static_cast<unsigned int>(faceNormals.size()));
    for (size_t i = 0; i < faceNormals.size(); ++i)
        normals[static_cast<unsigned int>(i)] = transform->normalToSpace(faceNormals[i]);
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getNormals(ZFloatVectorArray& normals, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    const std::vector<Vector3> all = mesh->normals();
    normals.setLength(static_cast<unsigned int>(all.size()));
    for (size_t i = 0; i < all.size(); ++i)
        normals[static_cast<unsigned int>(i)] = transform->normalToSpace(all[i]);
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::setNormals(const ZFloatVectorArray& normals, ZSpace::Space space) {
    if (!m_target)
        return ZStatus::kInvalidParameter;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    std::vector<Vector3> objectNormals;
    objectNormals.reserve(normals.length());
    for (const ZFloatVector& n : normals)
        objectNormals.push_back(transform->normalFromSpace(ZVector(n)));
    return oz::editMesh(m_target, MeshTarget::Edit::kAttributes,
                        [&](MeshData& data) { return oz::toStatus(data.mesh.setNormals(objectNormals)); });
}
