#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"

#include <filesystem>

namespace oz::exporter {

// Binary STL of every triangle of every mesh, with facet normals from the winding. STL has no materials.
ExportStatus writeStl(const ExportScene& scene, const std::filesystem::path& stlPath);

} // namespace oz::exporter
