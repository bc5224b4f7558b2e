#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>

namespace oz {
class MeshTarget;
}

// Walks the vertices of a mesh (mesh data or a mesh shape) in id order, or jumps with setIndex.
// Connected edges and faces come in ascending id order, connected vertices in the order of the
// edges that lead to them: the same for the same topology every time. Queries once the iterator
// is done fail with kInvalidParameter.
class OZ_API ZItMeshVertex {
public:
    explicit ZItMeshVertex(const ZObject& polyObject, ZStatus* status = nullptr);

    ZStatus reset();
    bool isDone(ZStatus* status = nullptr) const;
    ZStatus next();
    int index(ZStatus* status = nullptr) const;
    int count(ZStatus* status = nullptr) const;
    // Moves to vertex `index`; prevIndex receives the one it was on.
    ZStatus setIndex(int index, int& prevIndex);

    ZPoint position(ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    ZStatus setPosition(const ZPoint& point, ZSpace::Space space = ZSpace::kObject);
    // The angle-weighted average of the normals of the faces around the vertex.
    ZStatus getNormal(ZVector& normal, ZSpace::Space space = ZSpace::kObject) const;

    ZStatus getConnectedVertices(ZIntArray& vertexList) const;
    ZStatus getConnectedFaces(ZIntArray& faceList) const;
    ZStatus getConnectedEdges(ZIntArray& edgeList) const;
    ZStatus numConnectedEdges(int& edgeCount) const;
    ZStatus numConnectedFaces(int& faceCount) const;
    // On an edge that only one face uses.
    bool onBoundary(ZStatus* status = nullptr) const;

    bool hasColor(ZStatus* status = nullptr) const;
    // kNotFound, leaving `color` as it is, when the vertex has no colour.
    ZStatus getColor(ZColor& color) const;

private:
    ZObject m_object;
    oz::MeshTarget* m_target = nullptr; // kept alive by m_object
    int m_index = 0;
};
