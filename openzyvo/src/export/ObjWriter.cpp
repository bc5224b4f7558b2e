#include "export/ObjWriter.h"

#include "export/FileOutput.h"
#include "export/MaterialGroups.h"
#include "export/MeshGeometry.h"
#include "export/SceneValidation.h"
#include "export/TextFormat.h"
#include "export/ValueIndex.h"

#include <string_view>

namespace oz::exporter {
namespace {

// OBJ indices are 1-based and count through the whole file, across objects.
struct FileCounters {
    std::uint32_t positions = 0;
    std::uint32_t uvs = 0;
    std::uint32_t normals = 0;
};

template <std::size_t N>
void appendLine(std::string& out, std::string_view tag, const std::array<float, N>& v) {
    out += tag;
    for (float x : v) {
        out += ' ';
        appendNumber(out, x);
    }
    out += '\n';
}

void appendVertices(std::string& out, const ExportMesh& mesh) {
    for (std::size_t v = 0; v < mesh.positions.size(); ++v) {
        if (mesh.colors.empty()) {
            appendLine(out, "v", mesh.positions[v]);
            continue;
        }
        const Float4& c = mesh.colors[v];
        const Float3& p = mesh.positions[v];
        appendLine<6>(out, "v", {p[0], p[1], p[2], c[0], c[1], c[2]});
    }
}

// Per triangle corner, the 1-based file index of its UV (if any) and of its normal.
struct CornerIndices {
    std::vector<std::uint32_t> uv;
    std::vector<std::uint32_t> normal;
};

// Writes each distinct UV and normal of the mesh once, so flat faces share a single `vn` line.
CornerIndices appendCornerLists(std::string& out, const ExportMesh& mesh, FileCounters& counters) {
    CornerIndices indices;
    ValueIndex<2> uvIndex;
    for (const Float2& uv : mesh.uvs) {
        const auto [index, added] = uvIndex.insert(bitKey(uv));
        if (added)
            appendLine(out, "vt", uv);
        indices.uv.push_back(counters.uvs + index + 1);
    }
    ValueIndex<3> normalIndex;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        for (int c = 0; c < 3; ++c) {
            const Float3 normal = cornerNormal(mesh, t, c);
            const auto [index, added] = normalIndex.insert(bitKey(normal));
            if (added)
                appendLine(out, "vn", normal);
            indices.normal.push_back(counters.normals + index + 1);
        }
    counters.uvs += uvIndex.size();
    counters.normals += normalIndex.size();
    return indices;
}

void appendFace(std::string& out, const ExportMesh& mesh, std::uint32_t t, const CornerIndices& corners,
                std::uint32_t firstPosition) {
    out += 'f';
    for (int c = 0; c < 3; ++c) {
        const std::size_t corner = std::size_t{t} * 3 + static_cast<std::size_t>(c);
        out += ' ';
        appendNumber(out, firstPosition + mesh.triangles[t][static_cast<std::size_t>(c)] + 1);
        out += '/';
        if (!corners.uv.empty())
            appendNumber(out, corners.uv[corner]);
        out += '/';
        appendNumber(out, corners.normal[corner]);
    }
    out += '\n';
}

std::string materialLibrary(const std::vector<ExportMaterial>& materials,
                            const std::vector<std::string>& names) {
    std::string out = "# zyvo material library\n";
    for (std::size_t m = 0; m < materials.size(); ++m) {
        const Float4& c = materials[m].baseColor;
        out += "\nnewmtl " + names[m] + "\n";
        appendLine<3>(out, "Ka", {0.0f, 0.0f, 0.0f});
        appendLine<3>(out, "Kd", {c[0], c[1], c[2]});
        appendLine<3>(out, "Ks", {0.0f, 0.0f, 0.0f});
        appendLine<1>(out, "d", {c[3]});
        out += "illum 1\n"; // diffuse only: the shaders exported here are Lambert surfaces
    }
    return out;
}

template <class T> std::vector<std::string_view> namesOf(const std::vector<T>& items) {
    std::vector<std::string_view> names;
    for (const T& item : items)
        names.push_back(item.name);
    return names;
}

} // namespace

ExportStatus writeObj(const ExportScene& scene, const std::filesystem::path& objPath) {
    if (ExportStatus status = validateScene(scene); !status)
        return status;
    const GroupedScene grouped = groupByMaterial(scene);
    const std::vector<std::string> materialNames = uniqueTokens(namesOf(grouped.materials), "material");
    const std::vector<std::string> meshNames = uniqueTokens(namesOf(scene.meshes), "mesh");
    const std::filesystem::path mtlPath = std::filesystem::path(objPath).replace_extension(".mtl");

    std::string out = "# zyvo OBJ export\nmtllib " + mtlPath.filename().string() + "\n";
    FileCounters counters;
    for (std::size_t m = 0; m < scene.meshes.size(); ++m) {
        const ExportMesh& mesh = scene.meshes[m];
        if (grouped.groups[m].empty())
            continue;
        out += "\no " + meshNames[m] + "\n";
        appendVertices(out, mesh);
        const CornerIndices corners = appendCornerLists(out, mesh, counters);
        for (const MaterialGroup& group : grouped.groups[m]) {
            out += "usemtl " + materialNames[group.material] + "\n";
            for (std::uint32_t t : group.triangles)
                appendFace(out, mesh, t, corners, counters.positions);
        }
        counters.positions += static_cast<std::uint32_t>(mesh.positions.size());
    }

    if (ExportStatus status = writeFile(mtlPath, materialLibrary(grouped.materials, materialNames)); !status)
        return status;
    return writeFile(objPath, out);
}

} // namespace oz::exporter
