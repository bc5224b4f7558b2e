#include "ExportTestScene.h"

#include <random>
#include <string>

namespace oz::exporter::test {

ExportMesh movedSquare(const Float3& offset, const std::string& name) {
    ExportMesh mesh;
    mesh.name = name;
    const float corners[8][2] = {{-2, -2}, {2, -2}, {2, 2}, {-2, 2}, {-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (const auto& c : corners)
        mesh.positions.push_back({c[0] + offset[0], c[1] + offset[1], offset[2]});
    mesh.triangles = {{0, 1, 5}, {0, 5, 4}, {1, 2, 6}, {1, 6, 5}, {2, 3, 7}, {2, 7, 6}, {3, 0, 4}, {3, 4, 7}};
    for (const Triangle& t : mesh.triangles)
        for (std::uint32_t v : t) {
            mesh.normals.push_back({0.0f, 0.0f, 1.0f});
            mesh.uvs.push_back({(corners[v][0] + 2.0f) / 4.0f, (corners[v][1] + 2.0f) / 4.0f});
        }
    mesh.primitives = {{0, {6, 7, 0, 1}}, {1, {2, 3, 4, 5}}};
    return mesh;
}

ExportScene framedSquare() {
    ExportScene scene;
    scene.materials = {{"redSG", kRed}, {"blueSG", kBlue}};
    scene.meshes.push_back(movedSquare({0.0f, 0.0f, 0.0f}, "frame"));
    return scene;
}

TempDirectory::TempDirectory() {
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() / ("zyvo-export-test-" + std::to_string(random()));
    std::filesystem::create_directories(path_);
}

TempDirectory::~TempDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace oz::exporter::test
