#pragma once

#include "mesh/Csr.h"
#include "mesh/FaceLoops.h"

#include <array>
#include <cstdint>
#include <vector>

namespace oz::mesh {

// Edges and adjacency of a mesh, derived from its face loops alone (point moves never touch it).
// Edge ids follow the first use of an edge when walking the faces' loops in order, so they are
// stable for a given topology. Every row is a flat table: a breadth-first shell walk over a large
// mesh reads vertexVertices without any allocation per vertex.
struct Topology {
    // Per edge: its two vertex ids, oriented as the first face-vertex that uses it walks them.
    std::vector<std::array<int32_t, 2>> edgeVertices;
    // Per edge: the faces using it, ascending.
    Csr edgeFaces;
    // Per face: its edges, each once, in the order its loops walk them (outer loop first).
    Csr faceEdges;
    // Per face, aligned with FaceLoops::faceVertices(face): the edge from each face-vertex to the
    // next one of its loop.
    Csr faceVertexEdges;
    // Per vertex: incident edges, ascending, and the vertex at the other end of each of them.
    Csr vertexEdges;
    Csr vertexVertices;
    // Per vertex: faces using it, ascending.
    Csr vertexFaces;

    int32_t edgeCount() const { return static_cast<int32_t>(edgeVertices.size()); }
};

// `vertexCount` may exceed the ids in use; unused vertices get empty rows.
Topology buildTopology(const FaceLoops& faces, int32_t vertexCount);

} // namespace oz::mesh
