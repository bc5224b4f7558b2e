#include "export/GlbWriter.h"

#include "export/FileOutput.h"
#include "export/MaterialGroups.h"
#include "export/MeshGeometry.h"
#include "export/SceneValidation.h"
#include "export/ValueIndex.h"

#include <cstring>
#include <sstream>
#include <tiny_gltf.h>

namespace oz::exporter {
namespace {

// glTF wants one index per vertex for all attributes, so corners whose vertex, normal and UV agree are
// welded into one vertex and the others are split.
struct WeldedMesh {
    std::vector<Float3> positions;
    std::vector<Float3> normals;
    std::vector<Float2> uvs;
    std::vector<Float4> colors;
    std::vector<std::uint32_t> cornerVertex; // per triangle corner
    Bounds bounds;
};

WeldedMesh weld(const ExportMesh& mesh) {
    WeldedMesh welded;
    ValueIndex<6> index;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        for (int c = 0; c < 3; ++c) {
            const std::size_t corner = t * 3 + static_cast<std::size_t>(c);
            const std::uint32_t v = mesh.triangles[t][static_cast<std::size_t>(c)];
            const Float3 normal = cornerNormal(mesh, t, c);
            const Float2 uv = mesh.uvs.empty() ? Float2{0.0f, 0.0f} : mesh.uvs[corner];
            const BitKey<3> n = bitKey(normal);
            const BitKey<2> u = bitKey(uv);
            const auto [vertex, added] = index.insert({v, n[0], n[1], n[2], u[0], u[1]});
            welded.cornerVertex.push_back(vertex);
            if (!added)
                continue;
            welded.positions.push_back(mesh.positions[v]);
            welded.bounds.add(mesh.positions[v]);
            welded.normals.push_back(normal);
            if (!mesh.uvs.empty())
                welded.uvs.push_back(uv);
            if (!mesh.colors.empty())
                welded.colors.push_back(mesh.colors[v]);
        }
    return welded;
}

// Appends data to the single binary buffer and describes it with a buffer view and an accessor.
class ModelBuilder {
public:
    explicit ModelBuilder(tinygltf::Model& model)
        : model_(model) {
        model_.buffers.emplace_back();
    }

    template <class T>
    int addAccessor(const std::vector<T>& values, int componentType, int type, int target) {
        std::vector<unsigned char>& data = model_.buffers[0].data;
        data.resize((data.size() + 3) & ~std::size_t{3}, 0); // every component type here is 4 bytes
        const std::size_t offset = data.size();
        data.resize(offset + values.size() * sizeof(T));
        std::memcpy(data.data() + offset, values.data(), values.size() * sizeof(T));

        tinygltf::BufferView view;
        view.buffer = 0;
        view.byteOffset = offset;
        view.byteLength = values.size() * sizeof(T);
        view.target = target;
        model_.bufferViews.push_back(view);

        tinygltf::Accessor accessor;
        accessor.bufferView = static_cast<int>(model_.bufferViews.size() - 1);
        accessor.componentType = componentType;
        accessor.type = type;
        accessor.count = values.size();
        model_.accessors.push_back(accessor);
        return static_cast<int>(model_.accessors.size() - 1);
    }

    tinygltf::Accessor& accessor(int index) { return model_.accessors[static_cast<std::size_t>(index)]; }

private:
    tinygltf::Model& model_;
};

tinygltf::Material toGltf(const ExportMaterial& material) {
    tinygltf::Material gltf;
    gltf.name = material.name;
    gltf.pbrMetallicRoughness.baseColorFactor.assign(material.baseColor.begin(), material.baseColor.end());
    gltf.pbrMetallicRoughness.metallicFactor = 0.0;
    gltf.pbrMetallicRoughness.roughnessFactor = 1.0;
    if (material.baseColor[3] < 1.0f)
        gltf.alphaMode = "BLEND";
    return gltf;
}

tinygltf::Mesh toGltf(const ExportMesh& mesh, const std::vector<MaterialGroup>& groups,
                      ModelBuilder& builder) {
    const WeldedMesh welded = weld(mesh);
    std::map<std::string, int> attributes;
    const int position = builder.addAccessor(welded.positions, TINYGLTF_COMPONENT_TYPE_FLOAT,
                                             TINYGLTF_TYPE_VEC3, TINYGLTF_TARGET_ARRAY_BUFFER);
    builder.accessor(position).minValues.assign(welded.bounds.min.begin(), welded.bounds.min.end());
    builder.accessor(position).maxValues.assign(welded.bounds.max.begin(), welded.bounds.max.end());
    attributes["POSITION"] = position;
    attributes["NORMAL"] = builder.addAccessor(welded.normals, TINYGLTF_COMPONENT_TYPE_FLOAT,
                                               TINYGLTF_TYPE_VEC3, TINYGLTF_TARGET_ARRAY_BUFFER);
    if (!welded.uvs.empty())
        attributes["TEXCOORD_0"] = builder.addAccessor(welded.uvs, TINYGLTF_COMPONENT_TYPE_FLOAT,
                                                       TINYGLTF_TYPE_VEC2, TINYGLTF_TARGET_ARRAY_BUFFER);
    if (!welded.colors.empty())
        attributes["COLOR_0"] = builder.addAccessor(welded.colors, TINYGLTF_COMPONENT_TYPE_FLOAT,
                                                    TINYGLTF_TYPE_VEC4, TINYGLTF_TARGET_ARRAY_BUFFER);

    tinygltf::Mesh gltf;
    gltf.name = mesh.name;
    for (const MaterialGroup& group : groups) {
        std::vector<std::uint32_t> indices;
        for (std::uint32_t t : group.triangles)
            for (std::size_t c = 0; c < 3; ++c)
                indices.push_back(welded.cornerVertex[std::size_t{t} * 3 + c]);
        tinygltf::Primitive primitive;
        primitive.attributes = attributes;
        primitive.indices = builder.addAccessor(indices, TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT,
                                                TINYGLTF_TYPE_SCALAR, TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER);
        primitive.material = static_cast<int>(group.material);
        primitive.mode = TINYGLTF_MODE_TRIANGLES;
        gltf.primitives.push_back(std::move(primitive));
    }
    return gltf;
}

} // namespace

ExportStatus writeGlb(const ExportScene& scene, const std::filesystem::path& glbPath) {
    if (ExportStatus status = validateScene(scene); !status)
        return status;
    const GroupedScene grouped = groupByMaterial(scene);

    tinygltf::Model model;
    model.asset.version = "2.0";
    model.asset.generator = "zyvo";
    ModelBuilder builder(model);
    for (const ExportMaterial& material : grouped.materials)
        model.materials.push_back(toGltf(material));

    tinygltf::Scene gltfScene;
    for (std::size_t m = 0; m < scene.meshes.size(); ++m) {
        if (grouped.groups[m].empty())
            continue;
        model.meshes.push_back(toGltf(scene.meshes[m], grouped.groups[m], builder));
        tinygltf::Node node;
        node.name = scene.meshes[m].name;
        node.mesh = static_cast<int>(model.meshes.size() - 1);
        model.nodes.push_back(node);
        gltfScene.nodes.push_back(static_cast<int>(model.nodes.size() - 1));
    }
    model.scenes.push_back(gltfScene);
    model.defaultScene = 0;

    std::ostringstream glb;
    tinygltf::TinyGLTF writer;
    if (!writer.WriteGltfSceneToStream(&model, glb, false, true))
        return ExportStatus::failure(ExportCode::kWriteFailed,
                                     "cannot encode glTF for '" + glbPath.string() + "'");
    return writeFile(glbPath, glb.str());
}

} // namespace oz::exporter
