#pragma once

#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace zyvo {

// Refuses, with an error, files of which one would overwrite what an earlier
// one writes: the same path, however spelled, or the material library of an
// OBJ file.
ZStatus checkDistinctFiles(const std::vector<std::string>& files);

// Refuses, with an error, outputs that are no mesh file (.obj, .stl, .glb) or
// the same file twice, and a preview that is no .png (an empty preview is
// none). `what` names the object in the message: "the text", "the artwork".
ZStatus checkMeshOutputs(const std::vector<std::string>& outputs, const std::string& preview,
                         const std::string& what);

} // namespace zyvo
