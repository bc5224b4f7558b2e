#pragma once

#include "export/ExportScene.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace oz::exporter {

// The triangles of one mesh that share a material; becomes one `usemtl` block or one glTF primitive.
struct MaterialGroup {
    std::size_t material = 0; // index into GroupedScene::materials
    std::vector<std::uint32_t> triangles;
};

// A validated scene sorted by material. `materials` holds the scene's materials in order, followed by the
// default grey only when some triangle is bound to no material. Meshes without triangles get no groups.
struct GroupedScene {
    std::vector<ExportMaterial> materials;
    std::vector<std::vector<MaterialGroup>> groups; // per mesh, in primitive order, unbound triangles last
};

GroupedScene groupByMaterial(const ExportScene& scene);

} // namespace oz::exporter
