#pragma once

#include "export/ExportScene.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <vector>

// What the host hands to the export writers (OBJ, STL, glTF, previews).
namespace oz::exporter {

// Every mesh shape of the scene, in the order the shapes were made.
std::vector<ZObject> sceneMeshShapes();

// Evaluates `nodes` at the current time and gathers them for export, one mesh per shape:
// triangulated, in world space, with per-corner normals, "map1" uvs and vertex colours when the
// mesh has them. Faces bound to a shading engine (see faceShadingEngines) form one primitive per
// engine, whose material is named after the engine and coloured by its `surfaceShader`; other
// faces stay in no primitive and are written with the default material. A transform stands for
// the one mesh shape below it; shapes without a mesh are left out.
//
// Fails with kInvalidParameter, and `error` says which node, for a node that is not a mesh shape
// or a transform over exactly one.
ZStatus collectExportScene(const std::vector<ZObject>& nodes, ExportScene& scene, ZString* error = nullptr);

} // namespace oz::exporter
