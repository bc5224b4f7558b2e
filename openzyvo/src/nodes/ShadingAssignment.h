#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <vector>

namespace oz::nodes {

// The shading engine each face of a mesh shape is bound to (the null object: none), as the
// shape's connections say: an engine whose `dagSetMembers` holds `instObjGroups[0].objectGroups[j]`
// takes the faces of the object group of `meshData` that the member's `objectGroupId` names (when
// the group holds faces); an engine that holds `instObjGroups[0]` itself takes every other face.
// Where groups of different engines overlap, the member with the lower index j wins.
ZStatus faceShadingEngines(const ZObject& shape, const ZObject& meshData, int faceCount,
                           std::vector<ZObject>& engines);

} // namespace oz::nodes
