#include "export/MaterialGroups.h"

namespace oz::exporter {
namespace {

// Primitives naming kNoMaterial and triangles in no primitive end up together under `defaultIndex`.
std::vector<MaterialGroup> meshGroups(const ExportMesh& mesh, std::size_t defaultIndex) {
    std::vector<MaterialGroup> groups;
    std::vector<bool> bound(mesh.triangles.size(), false);
    MaterialGroup unbound{defaultIndex, {}};
    for (const ExportPrimitive& primitive : mesh.primitives) {
        for (std::uint32_t t : primitive.triangles)
            bound[t] = true;
        if (primitive.material == kNoMaterial)
            unbound.triangles.insert(unbound.triangles.end(), primitive.triangles.begin(),
                                     primitive.triangles.end());
        else if (!primitive.triangles.empty())
            groups.push_back({primitive.material, primitive.triangles});
    }
    for (std::uint32_t t = 0; t < bound.size(); ++t)
        if (!bound[t])
            unbound.triangles.push_back(t);
    if (!unbound.triangles.empty())
        groups.push_back(std::move(unbound));
    return groups;
}

} // namespace

GroupedScene groupByMaterial(const ExportScene& scene) {
    GroupedScene grouped{scene.materials, {}};
    const std::size_t defaultIndex = scene.materials.size();
    bool usesDefault = false;
    for (const ExportMesh& mesh : scene.meshes) {
        grouped.groups.push_back(meshGroups(mesh, defaultIndex));
        for (const MaterialGroup& group : grouped.groups.back())
            usesDefault = usesDefault || group.material == defaultIndex;
    }
    if (usesDefault)
        grouped.materials.push_back(defaultMaterial());
    return grouped;
}

} // namespace oz::exporter
