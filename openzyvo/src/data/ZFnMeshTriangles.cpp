#include "data/MeshAccess.h"
#include "data/SpaceTransform.h"

#include <OpenZyvo/ZFnMesh.h>
#include <cmath>
#include <vector>

using oz::mesh::BoundingBox;
using oz::mesh::RayHit;
using oz::mesh::Triangulation;

namespace {

// The triangles of the faces a caller named (all of a face's, or the one given per entry), as a
// triangulation of its own so the kernel can search just them; hits map back through the tables.
struct Selection {
    Triangulation triangulation;
    std::vector<BoundingBox> bounds;
    std::vector<int32_t> faces;     // selection face -> mesh face
    std::vector<int32_t> triangles; // selection face -> triangle of the mesh face, or -1 for all
};

ZStatus select(const oz::mesh::Mesh& mesh, const Triangulation& all, const ZIntArray& faceIds,
               const ZIntArray* triIds, Selection& selection) {
    if (triIds && triIds->length() != faceIds.length())
        return ZStatus::kInvalidParameter;
    const auto points = mesh.points();
    for (unsigned int i = 0; i < faceIds.length(); ++i) {
        const int face = faceIds[i];
        if (face < 0 || face >= mesh.faceCount())
            return ZStatus::kInvalidParameter;
        auto triangles = all.faceTriangles(face);
        const int triangle = triIds ? (*triIds)[i] : -1;
        if (triIds) {
            if (triangle < 0 || static_cast<size_t>(triangle) >= triangles.size())
                return ZStatus::kInvalidParameter;
            triangles = triangles.subspan(static_cast<size_t>(triangle), 1);
        }
        BoundingBox box;
        for (const auto& t : triangles) {
            selection.triangulation.triangles.push_back(t);
            for (const int32_t v : t)
                box.expand(points[static_cast<size_t>(v)]);
        }
        selection.triangulation.faceTriangleStart.push_back(
            static_cast<int32_t>(selection.triangulation.triangles.size()));
        selection.bounds.push_back(box);
        selection.faces.push_back(face);
        selection.triangles.push_back(triangle);
    }
    return ZStatus::kSuccess;
}

} // namespace

ZStatus ZFnMesh::getTriangles(ZIntArray& triangleCounts, ZIntArray& triangleVertices) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto triangulation = mesh->triangulation();
    triangleCounts.setLength(static_cast<unsigned int>(mesh->faceCount()));
    for (int32_t f = 0; f < mesh->faceCount(); ++f)
        triangleCounts[static_cast<unsigned int>(f)] =
            static_cast<int>(triangulation->faceTriangles(f).size());
    auto& ids = triangleVertices.asVector();
    ids.clear();
    ids.reserve(triangulation->triangles.size() * 3);
    for (const auto& t : triangulation->triangles)
        ids.insert(ids.end(), t.begin(), t.end());
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::getPolygonTriangleVertices(int polygonId, int triangleId, int (&vertexList)[3]) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto triangles = mesh->triangulation()->faceTriangles(polygonId);
    if (triangleId < 0 || static_cast<size_t>(triangleId) >= triangles.size())
        return ZStatus::kInvalidParameter;
    for (int i = 0; i < 3; ++i)
        vertexList[i] = triangles[static_cast<size_t>(triangleId)][static_cast<size_t>(i)];
    return ZStatus::kSuccess;
}

bool ZFnMesh::closestIntersection(const ZFloatPoint& raySource, const ZFloatVector& rayDirection,
                                  const ZIntArray* faceIds, const ZIntArray* triIds, bool,
                                  ZSpace::Space space, float maxParam, bool testBothDirections,
                                  ZMeshIsectAccelParams*, ZFloatPoint& hitPoint, float* hitRayParam,
                                  int* hitFace, int* hitTriangle, float* hitBary1, float* hitBary2,
                                  float tolerance, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    if (!mesh)
        return false;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform || (triIds && !faceIds) || !(maxParam >= 0.0f) || !(tolerance >= 0.0f)) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return false;
    }
    // The ray parameter survives the move to object space when the direction moves with it.
    const oz::mesh::Ray ray{transform->pointFromSpace(ZPoint(raySource)),
                            transform->vectorFromSpace(ZVector(rayDirection))};
    const double directionLength = oz::mesh::length(ray.direction);
    if (!(directionLength > 0.0) || !std::isfinite(directionLength)) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return false;
    }
    const double maxDistance = static_cast<double>(maxParam) * directionLength;

    Selection selection;
    if (faceIds) {
        if (const ZStatus selected = select(*mesh, *mesh->triangulation(), *faceIds, triIds, selection);
            !selected) {
            oz::setStatus(status, selected);
            return false;
        }
    }
    const auto cast = [&](const oz::mesh::Ray& r, RayHit& hit) {
        if (faceIds) {
            return oz::mesh::closestIntersection(r, maxDistance, tolerance, selection.triangulation,
                                                 selection.bounds, mesh->points(), hit);
        }
        return mesh->closestIntersection(r, maxDistance, tolerance, hit);
    };

    RayHit hit;
    if (const auto searched = cast(ray, hit); searched != oz::mesh::Status::Success) {
        oz::setStatus(status, oz::toStatus(searched));
        return false;
    }
    double param = hit.distance / directionLength;
    if (testBothDirections) {
        RayHit behind;
        cast(oz::mesh::Ray{ray.origin, ray.direction * -1.0}, behind);
        if (behind.hit && (!hit.hit || behind.distance < hit.distance)) {
            hit = behind;
            param = -behind.distance / directionLength;
        }
    }
    oz::setStatus(status, ZStatus::kSuccess);
    if (!hit.hit)
        return false;

    int face = hit.face;
    int triangle = hit.triangle;
    if (faceIds) {
        face = selection.faces[static_cast<size_t>(hit.face)];
        if (selection.triangles[static_cast<size_t>(hit.face)] >= 0)
            triangle = selection.triangles[static_cast<size_t>(hit.face)];
    }
    hitPoint = ZFloatPoint(transform->pointToSpace(hit.point));
    if (hitRayParam)
        *hitRayParam = static_cast<float>(param);
    if (hitFace)
        *hitFace = face;
    if (hitTriangle)
        *hitTriangle = triangle;
    if (hitBary1)
        *hitBary1 = static_cast<float>(hit.barycentric[0]);
    if (hitBary2)
        *hitBary2 = static_cast<float>(hit.barycentric[1]);
    return true;
}
