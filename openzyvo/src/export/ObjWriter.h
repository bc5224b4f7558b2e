#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"

#include <filesystem>

namespace oz::exporter {

// Wavefront OBJ: one object per mesh, one `usemtl` block per material group, vertex colours as the common
// "v x y z r g b" extension. The material library goes beside the file, with the same stem and ".mtl".
ExportStatus writeObj(const ExportScene& scene, const std::filesystem::path& objPath);

} // namespace oz::exporter
