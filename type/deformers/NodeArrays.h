#pragma once

#include "shells/ShellTopology.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZVectorArray.h>
#include <vector>

// What both deformer nodes read from their data blocks, as plain arrays.
namespace type {

// A double- or vector-array input; a null value reads as empty.
ZStatus readDoubles(ZDataBlock& block, const ZObject& attribute, std::vector<double>& values);
ZStatus readVectors(ZDataBlock& block, const ZObject& attribute, std::vector<Point3>& values);
std::vector<Point3> toPoints(const ZVectorArray& vectors);

// The input mesh of one geometry as element discovery needs it: points, face
// lists, and the vertex lists of the object groups that `groupIdsAttribute`
// names (empty when it is not connected or names none of the mesh's groups).
struct ElementSource {
    std::vector<Point3> points;
    std::vector<int> faceCounts;
    std::vector<int> faceVertices;
    std::vector<std::vector<int>> groupLists;
};

// The extrusion adds each character's vertex group to its mesh when its list of group ids is asked for;
// asking first makes the groups part of the mesh the deformer copies, and so of its output. A failure
// here is left to the element discovery, which reads the ids again inside deform and reports it there.
void pullVertexGroups(ZDataBlock& block, const ZObject& groupIdsAttribute);

// The mesh of input[multiIndex]; kInvalidParameter when it has none.
ZStatus readInputMesh(ZDataBlock& block, const ZObject& node, unsigned int multiIndex, ZObject& mesh);

// kInvalidParameter when the geometry has no mesh.
ZStatus readElementSource(ZDataBlock& block, const ZObject& node, unsigned int multiIndex,
                          const ZObject& groupIdsAttribute, ElementSource& source);

} // namespace type
