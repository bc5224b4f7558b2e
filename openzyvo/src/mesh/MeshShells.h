#pragma once

namespace oz::mesh {

class Mesh;

// The connected pieces of a mesh: faces that share a vertex (through any of
// their loops) belong to one shell. Vertices no face uses count for none.
int countShells(const Mesh& mesh);

} // namespace oz::mesh
