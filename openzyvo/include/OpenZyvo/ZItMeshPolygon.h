#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZColor.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVector.h>

namespace oz {
class MeshTarget;
}

// Walks the faces of a mesh (mesh data or a mesh shape) in index order, or jumps with setIndex. A
// face's vertices are its outer loop followed by its holes. Queries once the iterator is done fail
// with kInvalidParameter.
class OZ_API ZItMeshPolygon {
public:
    explicit ZItMeshPolygon(const ZObject& polyObject, ZStatus* status = nullptr);

    ZStatus reset();
    bool isDone(ZStatus* status = nullptr) const;
    ZStatus next();
    int index(ZStatus* status = nullptr) const;
    int count(ZStatus* status = nullptr) const;
    ZStatus setIndex(int index, int& prevIndex);

    // Holes included.
    int polygonVertexCount(ZStatus* status = nullptr) const;
    ZStatus getVertices(ZIntArray& vertices) const;
    // Id of the face's vertex at position `localIndex` of getVertices.
    int vertexIndex(int localIndex, ZStatus* status = nullptr) const;
    ZStatus getPoints(ZPointArray& points, ZSpace::Space space = ZSpace::kObject) const;
    ZPoint point(int localIndex, ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    // Edges of all its loops, each once, in the order the loops walk them.
    ZStatus getEdges(ZIntArray& edges) const;
    // Faces sharing an edge with it, ascending.
    ZStatus getConnectedFaces(ZIntArray& faces) const;
    // Unit normal of the outer loop.
    ZStatus getNormal(ZVector& normal, ZSpace::Space space = ZSpace::kObject) const;
    // Mean of the outer loop's points.
    ZPoint center(ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    ZStatus numTriangles(int& triangleCount) const;

    // Whether any of its vertices has a colour.
    bool hasColor(ZStatus* status = nullptr) const;
    // The mean colour of its coloured vertices; kNotFound, leaving `color` as it is, when none is.
    ZStatus getColor(ZColor& color) const;

private:
    ZObject m_object;
    oz::MeshTarget* m_target = nullptr; // kept alive by m_object
    int m_index = 0;
};
