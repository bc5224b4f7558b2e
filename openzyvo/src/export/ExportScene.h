#pragma once

#include "export/ExportMaterial.h"
#include "export/ExportMesh.h"

#include <vector>

namespace oz::exporter {

// Everything one export writes: the meshes and the materials their primitives refer to by index.
struct ExportScene {
    std::vector<ExportMesh> meshes;
    std::vector<ExportMaterial> materials;
};

} // namespace oz::exporter
