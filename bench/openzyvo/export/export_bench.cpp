#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "export/PngFile.h"
#include "export/PreviewRenderer.h"
#include "export/StlWriter.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>

namespace oz::exporter {
namespace {

// A wavy n x n grid of quads, two triangles each, with per-corner normals and UVs; every other row of
// quads uses the second material, so files hold two large groups.
ExportScene grid(int n) {
    ExportScene scene;
    scene.materials = {{"capSG", {0.8f, 0.2f, 0.1f, 1.0f}}, {"sideSG", {0.2f, 0.3f, 0.8f, 1.0f}}};
    ExportMesh mesh;
    mesh.name = "grid";
    for (int y = 0; y <= n; ++y)
        for (int x = 0; x <= n; ++x)
            mesh.positions.push_back(
                {static_cast<float>(x), static_cast<float>(y), std::sin(x * 0.3f) * 2.0f});
    mesh.primitives = {{0, {}}, {1, {}}};
    const auto vertex = [n](int x, int y) {
        return static_cast<std::uint32_t>(y * (n + 1) + x);
    };
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x) {
            const std::uint32_t first = static_cast<std::uint32_t>(mesh.triangles.size());
            mesh.triangles.push_back({vertex(x, y), vertex(x + 1, y), vertex(x + 1, y + 1)});
            mesh.triangles.push_back({vertex(x, y), vertex(x + 1, y + 1), vertex(x, y + 1)});
            mesh.primitives[static_cast<std::size_t>(y % 2)].triangles.insert(
                mesh.primitives[static_cast<std::size_t>(y % 2)].triangles.end(), {first, first + 1});
        }
    for (const Triangle& t : mesh.triangles)
        for (std::uint32_t v : t) {
            const Float3& p = mesh.positions[v];
            const float slope = std::cos(p[0] * 0.3f) * 0.6f;
            const float length = std::sqrt(1.0f + slope * slope);
            mesh.normals.push_back({-slope / length, 0.0f, 1.0f / length});
            mesh.uvs.push_back({p[0] / static_cast<float>(n), p[1] / static_cast<float>(n)});
        }
    scene.meshes.push_back(std::move(mesh));
    return scene;
}

template <ExportStatus (*Write)(const ExportScene&, const std::filesystem::path&)>
void BM_Write(benchmark::State& state, const char* extension) {
    const ExportScene scene = grid(static_cast<int>(state.range(0)));
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / (std::string("zyvo_export_bench") + extension);
    for (auto _ : state)
        if (!Write(scene, path))
            state.SkipWithError("write failed");
    state.counters["triangles"] = static_cast<double>(scene.meshes[0].triangles.size());
    std::filesystem::remove(path);
    std::filesystem::remove(std::filesystem::path(path).replace_extension(".mtl"));
}

void BM_WriteObj(benchmark::State& state) {
    BM_Write<writeObj>(state, ".obj");
}
void BM_WriteStl(benchmark::State& state) {
    BM_Write<writeStl>(state, ".stl");
}
void BM_WriteGlb(benchmark::State& state) {
    BM_Write<writeGlb>(state, ".glb");
}

void BM_RenderPreview(benchmark::State& state) {
    const ExportScene scene = grid(static_cast<int>(state.range(0)));
    PreviewImage image;
    for (auto _ : state)
        if (!renderPreview(scene, {}, image))
            state.SkipWithError("render failed");
    state.counters["triangles"] = static_cast<double>(scene.meshes[0].triangles.size());
}

void BM_WritePng(benchmark::State& state) {
    PreviewImage image;
    if (!renderPreview(grid(64), {}, image))
        state.SkipWithError("render failed");
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "zyvo_export_bench.png";
    for (auto _ : state)
        if (!writePng(image, path))
            state.SkipWithError("write failed");
    std::filesystem::remove(path);
}

// 100 x 100 quads is a line of extruded text; 500 x 500 (half a million triangles) a dense scene.
BENCHMARK(BM_WriteObj)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteStl)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteGlb)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RenderPreview)->Arg(100)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WritePng)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace oz::exporter
