#include "export/SceneValidation.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>

namespace oz::exporter {
namespace {

std::string meshLabel(const ExportMesh& mesh, std::size_t index) {
    return mesh.name.empty() ? "mesh #" + std::to_string(index) : "mesh '" + mesh.name + "'";
}

template <std::size_t N> bool allFinite(std::span<const std::array<float, N>> values) {
    return std::ranges::all_of(values, [](const std::array<float, N>& v) {
        return std::ranges::all_of(v, [](float x) { return std::isfinite(x); });
    });
}

ExportStatus invalid(const ExportMesh& mesh, std::size_t index, const std::string& problem) {
    return ExportStatus::failure(ExportCode::kInvalidMesh, meshLabel(mesh, index) + ": " + problem);
}

std::string sizeProblem(const char* what, std::size_t actual, const char* per, std::size_t expected) {
    return std::string(what) + " has " + std::to_string(actual) + " entries; expected none or " +
           std::to_string(expected) + " (" + per + ")";
}

ExportStatus validateMesh(const ExportMesh& mesh, std::size_t index, std::size_t materialCount) {
    const std::size_t vertexCount = mesh.positions.size();
    const std::size_t cornerCount = mesh.triangles.size() * 3;

    if (!allFinite<3>(mesh.positions))
        return invalid(mesh, index, "a vertex position is not a finite number");
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        for (std::uint32_t v : mesh.triangles[t])
            if (v >= vertexCount)
                return invalid(mesh, index,
                               "triangle " + std::to_string(t) + " refers to vertex " + std::to_string(v) +
                                   " but the mesh has " + std::to_string(vertexCount) + " vertices");

    if (!mesh.normals.empty() && mesh.normals.size() != cornerCount)
        return invalid(mesh, index,
                       sizeProblem("normals", mesh.normals.size(), "one per corner", cornerCount));
    if (!mesh.uvs.empty() && mesh.uvs.size() != cornerCount)
        return invalid(mesh, index, sizeProblem("UVs", mesh.uvs.size(), "one per corner", cornerCount));
    if (!mesh.colors.empty() && mesh.colors.size() != vertexCount)
        return invalid(mesh, index,
                       sizeProblem("colours", mesh.colors.size(), "one per vertex", vertexCount));
    if (!allFinite<3>(mesh.normals) || !allFinite<2>(mesh.uvs) || !allFinite<4>(mesh.colors))
        return invalid(mesh, index, "a normal, UV or colour is not a finite number");

    std::vector<bool> bound(mesh.triangles.size(), false);
    for (const ExportPrimitive& primitive : mesh.primitives) {
        if (primitive.material != kNoMaterial && primitive.material >= materialCount)
            return invalid(mesh, index,
                           "a primitive uses material " + std::to_string(primitive.material) +
                               " but the scene has " + std::to_string(materialCount) + " materials");
        for (std::uint32_t t : primitive.triangles) {
            if (t >= mesh.triangles.size())
                return invalid(mesh, index,
                               "a primitive lists triangle " + std::to_string(t) + " but the mesh has " +
                                   std::to_string(mesh.triangles.size()) + " triangles");
            if (bound[t])
                return invalid(mesh, index, "triangle " + std::to_string(t) + " is bound to two materials");
            bound[t] = true;
        }
    }
    return ExportStatus::success();
}

} // namespace

ExportStatus validateScene(const ExportScene& scene) {
    for (const ExportMaterial& material : scene.materials)
        if (!std::ranges::all_of(material.baseColor, [](float x) { return std::isfinite(x); }))
            return ExportStatus::failure(ExportCode::kInvalidMesh,
                                         "material '" + material.name + "' has a non-finite colour");

    std::size_t triangleCount = 0;
    for (std::size_t i = 0; i < scene.meshes.size(); ++i) {
        if (ExportStatus status = validateMesh(scene.meshes[i], i, scene.materials.size()); !status)
            return status;
        triangleCount += scene.meshes[i].triangles.size();
    }
    if (triangleCount == 0)
        return ExportStatus::failure(ExportCode::kEmptyScene, "nothing to export: no mesh has any triangles");
    return ExportStatus::success();
}

} // namespace oz::exporter
