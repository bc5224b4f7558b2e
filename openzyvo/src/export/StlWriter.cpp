#include "export/StlWriter.h"

#include "export/FileOutput.h"
#include "export/MeshGeometry.h"
#include "export/SceneValidation.h"

#include <bit>
#include <string_view>

namespace oz::exporter {
namespace {

// Does not begin with "solid", which readers take as the mark of an ASCII file.
constexpr std::string_view kHeaderText = "zyvo binary STL";
constexpr std::size_t kHeaderSize = 80;

void appendLittleEndian(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xffu);
}

void appendFloats(std::string& out, const Float3& v) {
    for (float x : v)
        appendLittleEndian(out, std::bit_cast<std::uint32_t>(x), 4);
}

} // namespace

ExportStatus writeStl(const ExportScene& scene, const std::filesystem::path& stlPath) {
    if (ExportStatus status = validateScene(scene); !status)
        return status;

    std::size_t triangleCount = 0;
    for (const ExportMesh& mesh : scene.meshes)
        triangleCount += mesh.triangles.size();

    std::string out(kHeaderText);
    out.resize(kHeaderSize, '\0');
    appendLittleEndian(out, static_cast<std::uint32_t>(triangleCount), 4);
    out.reserve(kHeaderSize + 4 + triangleCount * 50);
    for (const ExportMesh& mesh : scene.meshes)
        for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
            appendFloats(out, facetNormal(mesh, t));
            for (std::uint32_t v : mesh.triangles[t])
                appendFloats(out, mesh.positions[v]);
            appendLittleEndian(out, 0, 2); // attribute byte count, unused
        }
    return writeFile(stlPath, out);
}

} // namespace oz::exporter
