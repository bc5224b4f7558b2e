#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"

#include <filesystem>

namespace oz::exporter {

// glTF 2.0 binary (.glb): one node and one mesh per exported mesh, one primitive per material group, one
// metallic-roughness material per shading engine (base colour from its surface shader, not metallic, fully
// rough). Attributes are POSITION (with bounds), NORMAL, and TEXCOORD_0 and COLOR_0 when the mesh has them.
ExportStatus writeGlb(const ExportScene& scene, const std::filesystem::path& glbPath);

} // namespace oz::exporter
