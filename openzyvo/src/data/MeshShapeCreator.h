#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

namespace oz {

// Makes a new mesh shape node under `parent` (a transform, or the null object for a new
// transform) and returns it; the node must be a MeshTarget. ZFnMesh calls it when asked to build
// a mesh anywhere but in mesh data. The nodes library installs it when the runtime starts; until
// then such calls fail.
using MeshShapeCreator = ZObject (*)(const ZObject& parent, ZStatus& status);

void setMeshShapeCreator(MeshShapeCreator creator);
MeshShapeCreator meshShapeCreator();

} // namespace oz
