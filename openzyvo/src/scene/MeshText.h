#pragma once

#include <memory>
#include <string>

namespace oz {
class Data;
namespace mesh {
class Mesh;
}
} // namespace oz

namespace oz::scene {

class ValueList;

// A stored mesh as setAttr -type "mesh" takes it: the vertex count and the
// points (x y z each), then the face count and per face its loop count and
// each loop as its vertex count and vertex ids, the outer loop first and
// then the holes.
//
//   4  0 0 0  1 0 0  1 1 0  0 1 0   1  1 4 0 1 2 3
std::shared_ptr<Data> parseMesh(ValueList& values, std::string& error);
void formatMesh(const mesh::Mesh& mesh, std::string& out);

} // namespace oz::scene
