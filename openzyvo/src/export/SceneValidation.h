#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"

namespace oz::exporter {

// Checks everything the writers index or compute with, so that they can trust the scene afterwards:
// sizes of the per-corner and per-vertex arrays, vertex, triangle and material indices, finite values,
// and at least one triangle to write.
ExportStatus validateScene(const ExportScene& scene);

} // namespace oz::exporter
