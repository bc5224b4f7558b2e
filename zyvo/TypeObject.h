#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <string>
#include <vector>

namespace zyvo {

class Host;

// What the commands that build with the Type plug-in share: loading it,
// making an object with one of its creation procedures, giving the flat mesh
// a shape of its own, and writing what a shape shows.
ZStatus loadTypePlugin();

// The nodes a creation procedure of the plug-in makes, which names the
// source node (type or svgToPoly) first, then the typeExtrude node, the two
// deformers, the transform and the mesh shape that shows the solid.
struct TypeObject {
    ZObject source;
    ZString sourceName;
    ZObject extrudeNode;
    ZString shapeName;
};

// Runs `procedure`; `what` names the object in the error when it makes none.
ZStatus createTypeObject(const char* procedure, const std::string& what, TypeObject& made);

// Shows the source's flat mesh in a shape `shape` of its own, under a
// transform `transform`, beside the solid.
ZStatus showFlatMesh(const ZString& sourceName, const std::string& transform, const std::string& shape);

// Writes the mesh `shape` shows to every output and the preview.
ZStatus writeShownMesh(const std::string& shape, const std::vector<std::string>& outputs,
                       const std::string& preview, const ZHost::PreviewSize& previewSize, Host& host);

} // namespace zyvo
