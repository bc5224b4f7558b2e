#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFloatPoint.h>
#include <OpenZyvo/ZFloatPointArray.h>
#include <OpenZyvo/ZFloatVector.h>
#include <OpenZyvo/ZFloatVectorArray.h>
#include <OpenZyvo/ZFnBase.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZMeshIsectAccelParams.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZVector.h>

namespace oz {
class MeshTarget;
}

// Function set of polygon meshes: works on mesh data and on mesh shape nodes alike.
//
// A face is an outer loop of vertices with any number of hole loops. Its face-vertices are its
// outer loop followed by its holes, and every per-face-vertex list (polygon vertices, normals, uv
// ids) is in that order. Normals are per face-vertex: there is one normal per face-vertex, so
// numNormals() equals numFaceVertices().
//
// Spaces: object, transform and pre-transform space are the mesh's own; world and post-transform
// space apply the shape's world matrix. Mesh data has no place in a scene, so for data every
// space is object space.
//
// Building into "parentOrOwner": mesh data receives the mesh; a mesh shape node has its mesh
// replaced; a transform, or the null object, gets a new mesh shape node.
class OZ_API ZFnMesh : public ZFnBase {
public:
    static constexpr double kPointTolerance = 1.0e-10;

    ZFnMesh() = default;
    explicit ZFnMesh(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kMesh; }
    using ZFnBase::hasObj;
    bool hasObj(const ZObject& object) const override;
    ZStatus setObject(const ZObject& object) override;

    // --- Building -------------------------------------------------------------------------------

    // Replaces the owner's mesh by numPolygons faces without holes; polygonCounts holds each
    // face's vertex count and polygonConnects their vertex ids in turn. Normals, colours and uvs
    // start afresh; object groups of mesh data are kept. Returns the owner (or the new shape) and
    // attaches the function set to it.
    ZObject create(int numVertices, int numPolygons, const ZPointArray& vertexArray,
                   const ZIntArray& polygonCounts, const ZIntArray& polygonConnects,
                   const ZObject& parentOrOwner = ZObject::kNullObj, ZStatus* status = nullptr);
    ZObject create(int numVertices, int numPolygons, const ZFloatPointArray& vertexArray,
                   const ZIntArray& polygonCounts, const ZIntArray& polygonConnects,
                   const ZObject& parentOrOwner = ZObject::kNullObj, ZStatus* status = nullptr);

    // Appends a face and returns its index (-1 on failure). The first loopCounts[0] points are its
    // outer loop, the next loopCounts[1] its first hole, and so on. With mergeVertices, a point
    // within pointTolerance of an existing vertex uses that vertex. Without an owner the face
    // goes to the mesh the function set is attached to.
    int addPolygon(const ZPointArray& vertexArray, const ZIntArray& loopCounts, bool mergeVertices = true,
                   double pointTolerance = kPointTolerance, const ZObject& parentOrOwner = ZObject::kNullObj,
                   ZStatus* status = nullptr);
    // A face without holes.
    int addPolygon(const ZPointArray& vertexArray, bool mergeVertices = true,
                   double pointTolerance = kPointTolerance, const ZObject& parentOrOwner = ZObject::kNullObj,
                   ZStatus* status = nullptr);
    // Cuts holes into an existing face, one per entry of loopCounts.
    ZStatus addHoles(int faceIndex, const ZPointArray& vertexArray, const ZIntArray& loopCounts,
                     bool mergeVertices = true, double pointTolerance = kPointTolerance);
    // Every hole in face order: holeInfo gets three entries per hole (face index, the hole's
    // vertex count, the index of its first vertex in holeVertices). Returns the hole count.
    int getHoles(ZIntArray& holeInfo, ZIntArray& holeVertices, ZStatus* status = nullptr) const;

    // Copies the mesh of `source` (mesh data or a mesh shape) into the owner. Between mesh data
    // the object groups are copied too.
    ZObject copy(const ZObject& source, const ZObject& parentOrOwner = ZObject::kNullObj,
                 ZStatus* status = nullptr);

    // --- Counts and faces -----------------------------------------------------------------------

    int numVertices(ZStatus* status = nullptr) const;
    int numPolygons(ZStatus* status = nullptr) const;
    int numFaceVertices(ZStatus* status = nullptr) const;
    int numEdges(ZStatus* status = nullptr) const;
    int numNormals(ZStatus* status = nullptr) const;

    // Vertex count of a face, holes included.
    int polygonVertexCount(int polygonId, ZStatus* status = nullptr) const;
    // Vertex ids of a face: outer loop, then holes.
    ZStatus getPolygonVertices(int polygonId, ZIntArray& vertexList) const;
    // All faces: per face its vertex count (holes included), and their vertex ids in turn.
    ZStatus getVertices(ZIntArray& vertexCount, ZIntArray& vertexList) const;
    ZStatus getEdgeVertices(int edgeId, int (&vertexList)[2]) const;

    // --- Points ---------------------------------------------------------------------------------

    ZStatus getPoints(ZPointArray& vertexArray, ZSpace::Space space = ZSpace::kObject) const;
    ZStatus getPoints(ZFloatPointArray& vertexArray, ZSpace::Space space = ZSpace::kObject) const;
    // One point per vertex; the topology stays as it is.
    ZStatus setPoints(const ZPointArray& vertexArray, ZSpace::Space space = ZSpace::kObject);
    ZStatus setPoints(const ZFloatPointArray& vertexArray, ZSpace::Space space = ZSpace::kObject);
    ZStatus getPoint(int vertexId, ZPoint& point, ZSpace::Space space = ZSpace::kObject) const;
    ZStatus setPoint(int vertexId, const ZPoint& point, ZSpace::Space space = ZSpace::kObject);

    // --- Normals --------------------------------------------------------------------------------

    // Unit normal of the face's outer loop; the zero vector for a face without area.
    ZStatus getPolygonNormal(int polygonId, ZVector& normal, ZSpace::Space space = ZSpace::kObject) const;
    // The average of the normals of the faces around the vertex, weighted by the angle each face
    // makes there when angleWeighted is set. Once normals were set, the average of the vertex's
    // face-vertex normals instead.
    ZStatus getVertexNormal(int vertexId, bool angleWeighted, ZVector& normal,
                            ZSpace::Space space = ZSpace::kObject) const;
    ZStatus getFaceVertexNormals(int faceId, ZFloatVectorArray& normals,
                                 ZSpace::Space space = ZSpace::kObject) const;
    // One normal per face-vertex, in face-vertex order. Until normals are set, each face-vertex
    // has its face's normal.
    ZStatus getNormals(ZFloatVectorArray& normals, ZSpace::Space space = ZSpace::kObject) const;
    ZStatus setNormals(const ZFloatVectorArray& normals, ZSpace::Space space = ZSpace::kObject);

    // --- Vertex colours -------------------------------------------------------------------------

    // Whether any vertex has a colour.
    bool hasColor(ZStatus* status = nullptr) const;
    // One colour per vertex; vertices without one get defaultUnsetColor, or (-1, -1, -1, -1).
    ZStatus getVertexColors(ZColorArray& colors, const ZColor* defaultUnsetColor = nullptr) const;
    ZStatus setVertexColors(const ZColorArray& colors, const ZIntArray& vertexList);
    ZStatus setVertexColor(const ZColor& color, int vertexId);

    // --- UVs ------------------------------------------------------------------------------------
    // Without a set name the calls use the current set, "map1".

    ZString currentUVSetName(ZStatus* status = nullptr) const;
    ZStatus getUVSetNames(ZStringArray& setNames) const;
    ZStatus createUVSet(const ZString& setName);
    int numUVs(const ZString* uvSet = nullptr, ZStatus* status = nullptr) const;
    // Replaces the set's coordinates. Face-vertices keep their uv ids while these stay in range.
    ZStatus setUVs(const ZFloatArray& uArray, const ZFloatArray& vArray, const ZString* uvSet = nullptr);
    ZStatus getUVs(ZFloatArray& uArray, ZFloatArray& vArray, const ZString* uvSet = nullptr) const;
    // uvCounts holds one entry per face: 0 for a face without uvs, else its vertex count (holes
    // included); uvIds the uv ids of those face-vertices in turn.
    ZStatus assignUVs(const ZIntArray& uvCounts, const ZIntArray& uvIds, const ZString* uvSet = nullptr);
    // The assignment in the form assignUVs takes; a face counts as having uvs when all of its
    // face-vertices have one.
    ZStatus getAssignedUVs(ZIntArray& uvCounts, ZIntArray& uvIds, const ZString* uvSet = nullptr) const;

    // --- Triangles and rays ---------------------------------------------------------------------

    // Per face the number of its triangles, and their vertex ids in turn (three per triangle).
    // Holes are cut out; a degenerate face has no triangles.
    ZStatus getTriangles(ZIntArray& triangleCounts, ZIntArray& triangleVertices) const;
    ZStatus getPolygonTriangleVertices(int polygonId, int triangleId, int (&vertexList)[3]) const;

    static ZMeshIsectAccelParams autoUniformGridParams() { return {}; }

    // The hit of the ray (raySource + t * rayDirection, 0 <= t <= maxParam; with
    // testBothDirections also -maxParam <= t < 0) that lies closest to raySource. Holes are not
    // part of a face: a ray through one misses it. faceIds limits the search to those faces; with
    // triIds as well, entry i names triangle triIds[i] of face faceIds[i]. hitBary1 and hitBary2
    // are the weights of the hit triangle's first two vertices (as getPolygonTriangleVertices
    // lists them). idsSorted and accelParams change nothing (see ZMeshIsectAccelParams). Returns
    // whether there was a hit; the status fails only on bad arguments.
    bool closestIntersection(const ZFloatPoint& raySource, const ZFloatVector& rayDirection,
                             const ZIntArray* faceIds, const ZIntArray* triIds, bool idsSorted,
                             ZSpace::Space space, float maxParam, bool testBothDirections,
                             ZMeshIsectAccelParams* accelParams, ZFloatPoint& hitPoint, float* hitRayParam,
                             int* hitFace, int* hitTriangle, float* hitBary1, float* hitBary2,
                             float tolerance = 1.0e-6f, ZStatus* status = nullptr) const;

private:
    // Attaches to the mesh that building into `parentOrOwner` targets (see above).
    ZStatus attachOwner(const ZObject& parentOrOwner);

    // The object's mesh target; ZFnBase keeps the object, and so the target, alive.
    oz::MeshTarget* m_target = nullptr;
};
