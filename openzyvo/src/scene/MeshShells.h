#pragma once

namespace oz::mesh {
class Mesh;
}

namespace oz::scene {

// The connected pieces of a mesh: faces that share a vertex (through any of
// their loops) belong to one shell. Vertices no face uses count for none.
int countShells(const mesh::Mesh& mesh);

} // namespace oz::scene
