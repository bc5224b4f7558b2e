#include "ExportTestScene.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "export/PreviewRenderer.h"
#include "export/StlWriter.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace oz::exporter::test {
namespace {

using Writer = std::function<ExportStatus(const ExportScene&, const std::filesystem::path&)>;

const std::vector<std::pair<std::string, Writer>>& writers() {
    static const std::vector<std::pair<std::string, Writer>> all = {
        {"out.obj",
         [](const ExportScene& s, const std::filesystem::path& p) {
             return writeObj(s, p);
         }},
        {"out.stl",
         [](const ExportScene& s, const std::filesystem::path& p) {
             return writeStl(s, p);
         }},
        {"out.glb",
         [](const ExportScene& s, const std::filesystem::path& p) {
             return writeGlb(s, p);
         }},
        {"out.png",
         [](const ExportScene& s, const std::filesystem::path& p) {
             return writePreviewPng(s, p);
         }},
    };
    return all;
}

struct BrokenScene {
    std::string fault;
    std::function<void(ExportScene&)> breakIt;
    std::string messagePart;
};

// Each fault would make some writer index out of range or emit an unreadable file; all must refuse
// before touching the disk.
TEST(SceneValidation, EveryWriterRefusesInconsistentMeshesWithoutWritingAFile) {
    const std::vector<BrokenScene> broken = {
        {"vertex index", [](ExportScene& s) { s.meshes[0].triangles[3][1] = 8; }, "refers to vertex 8"},
        {"normal count", [](ExportScene& s) { s.meshes[0].normals.pop_back(); }, "normals"},
        {"uv count", [](ExportScene& s) { s.meshes[0].uvs.resize(8); }, "UVs"},
        {"colour count", [](ExportScene& s) { s.meshes[0].colors.resize(3); }, "colours"},
        {"nan position", [](ExportScene& s) { s.meshes[0].positions[2][1] = std::nanf(""); }, "finite"},
        {"material index", [](ExportScene& s) { s.meshes[0].primitives[1].material = 2; }, "material 2"},
        {"triangle index", [](ExportScene& s) { s.meshes[0].primitives[0].triangles.push_back(8); },
         "triangle 8"},
        {"bound twice", [](ExportScene& s) { s.meshes[0].primitives[1].triangles.push_back(0); },
         "two materials"},
    };
    TempDirectory dir;
    for (const BrokenScene& fault : broken) {
        ExportScene scene = framedSquare();
        scene.meshes[0].name = "letterA";
        fault.breakIt(scene);
        for (const auto& [file, write] : writers()) {
            const ExportStatus status = write(scene, dir / file);
            EXPECT_EQ(status.code, ExportCode::kInvalidMesh) << fault.fault << " / " << file;
            EXPECT_NE(status.message.find("letterA"), std::string::npos) << status.message;
            EXPECT_NE(status.message.find(fault.messagePart), std::string::npos) << status.message;
            EXPECT_FALSE(std::filesystem::exists(dir / file)) << fault.fault << " / " << file;
        }
    }
}

TEST(SceneValidation, ScenesWithoutTrianglesAreEmptyButEmptyMeshesBesideOthersAreSkipped) {
    TempDirectory dir;
    ExportScene empty;
    empty.meshes.push_back(ExportMesh{"nothing", {}, {}, {}, {}, {}, {}, {}});
    for (const auto& [file, write] : writers()) {
        EXPECT_EQ(write(ExportScene{}, dir / file).code, ExportCode::kEmptyScene) << file;
        EXPECT_EQ(write(empty, dir / file).code, ExportCode::kEmptyScene) << file;
    }

    ExportScene mixed = framedSquare();
    mixed.meshes.insert(mixed.meshes.begin(), empty.meshes[0]);
    for (const auto& [file, write] : writers())
        EXPECT_TRUE(write(mixed, dir / file)) << file;
}

} // namespace
} // namespace oz::exporter::test
