#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZStatus.h>

namespace oz {
class MeshTarget;
}

// Walks the edges of a mesh (mesh data or a mesh shape) in id order, or jumps with setIndex. Edge
// ids follow the first use of each edge when walking the faces' loops in order, so they stay the
// same while the topology does. Queries once the iterator is done fail with kInvalidParameter.
class OZ_API ZItMeshEdge {
public:
    explicit ZItMeshEdge(const ZObject& polyObject, ZStatus* status = nullptr);

    ZStatus reset();
    bool isDone(ZStatus* status = nullptr) const;
    ZStatus next();
    int index(ZStatus* status = nullptr) const;
    // Id of the edge's vertex 0 or 1 (in the direction the first face using it walks it).
    int index(int whichVertex, ZStatus* status = nullptr) const;
    int count(ZStatus* status = nullptr) const;
    ZStatus setIndex(int index, int& prevIndex);

    ZPoint point(int whichVertex, ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    ZPoint center(ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    double length(ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;

    // Faces using the edge, ascending.
    ZStatus getConnectedFaces(ZIntArray& faceList) const;
    ZStatus numConnectedFaces(int& faceCount) const;
    // Other edges sharing one of its vertices, ascending.
    ZStatus getConnectedEdges(ZIntArray& edgeList) const;
    // Used by one face only.
    bool onBoundary(ZStatus* status = nullptr) const;

private:
    ZObject m_object;
    oz::MeshTarget* m_target = nullptr; // kept alive by m_object
    int m_index = 0;
};
