#include "ExportTestScene.h"
#include "export/GlbWriter.h"

#include <cstring>
#include <gtest/gtest.h>
#include <tiny_gltf.h>

namespace oz::exporter::test {
namespace {

tinygltf::Model loadGlb(const std::filesystem::path& path) {
    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    EXPECT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, path.string())) << error;
    EXPECT_EQ(error, "");
    return model;
}

template <class T> std::vector<T> accessorData(const tinygltf::Model& model, int index) {
    const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(index));
    const tinygltf::BufferView& view = model.bufferViews.at(static_cast<std::size_t>(accessor.bufferView));
    const auto& buffer = model.buffers.at(static_cast<std::size_t>(view.buffer)).data;
    std::vector<T> values(accessor.count);
    const std::size_t offset = view.byteOffset + accessor.byteOffset;
    EXPECT_LE(offset + values.size() * sizeof(T), buffer.size());
    std::memcpy(values.data(), buffer.data() + offset, values.size() * sizeof(T));
    return values;
}

// The positions of a primitive's triangles, corner by corner, as the file stores them.
std::vector<Float3> primitiveCorners(const tinygltf::Model& model, const tinygltf::Primitive& primitive) {
    const auto positions = accessorData<Float3>(model, primitive.attributes.at("POSITION"));
    std::vector<Float3> corners;
    for (std::uint32_t i : accessorData<std::uint32_t>(model, primitive.indices))
        corners.push_back(i < positions.size() ? positions[i] : Float3{-1e9f, -1e9f, -1e9f});
    return corners;
}

std::vector<Float3> expectedCorners(const ExportMesh& mesh, const std::vector<std::uint32_t>& triangles) {
    std::vector<Float3> corners;
    for (std::uint32_t t : triangles)
        for (std::uint32_t v : mesh.triangles[t])
            corners.push_back(mesh.positions[v]);
    return corners;
}

std::vector<double> rgba(const Float4& c) {
    return {c[0], c[1], c[2], c[3]};
}

TEST(GlbWriter, OnePrimitivePerMaterialWithBoundsAndAllAttributes) {
    TempDirectory dir;
    ExportScene scene = framedSquare();
    for (std::size_t v = 0; v < 8; ++v)
        scene.meshes[0].colors.push_back({1.0f, 1.0f, static_cast<float>(v) / 8.0f, 1.0f});
    ASSERT_TRUE(writeGlb(scene, dir / "frame.glb"));

    const tinygltf::Model model = loadGlb(dir / "frame.glb");
    EXPECT_EQ(model.asset.version, "2.0");
    ASSERT_EQ(model.meshes.size(), 1u);
    ASSERT_EQ(model.nodes.size(), 1u);
    EXPECT_EQ(model.nodes[0].mesh, 0);
    EXPECT_EQ(model.nodes[0].name, "frame");
    ASSERT_EQ(model.scenes.size(), 1u);
    EXPECT_EQ(model.scenes[0].nodes, std::vector<int>{0});

    ASSERT_EQ(model.materials.size(), 2u);
    EXPECT_EQ(model.materials[0].pbrMetallicRoughness.baseColorFactor, rgba(kRed));
    EXPECT_EQ(model.materials[1].pbrMetallicRoughness.baseColorFactor, rgba(kBlue));
    EXPECT_EQ(model.materials[0].pbrMetallicRoughness.metallicFactor, 0.0);

    const ExportMesh& mesh = scene.meshes[0];
    const auto& primitives = model.meshes[0].primitives;
    ASSERT_EQ(primitives.size(), 2u);
    for (std::size_t p = 0; p < 2; ++p) {
        const tinygltf::Primitive& primitive = primitives[p];
        EXPECT_EQ(primitive.material, static_cast<int>(p));
        EXPECT_EQ(primitive.mode, TINYGLTF_MODE_TRIANGLES);
        for (const char* attribute : {"POSITION", "NORMAL", "TEXCOORD_0", "COLOR_0"})
            EXPECT_TRUE(primitive.attributes.contains(attribute)) << attribute;
        EXPECT_EQ(primitiveCorners(model, primitive), expectedCorners(mesh, mesh.primitives[p].triangles));

        const tinygltf::Accessor& position = model.accessors[primitive.attributes.at("POSITION")];
        EXPECT_EQ(position.minValues, (std::vector<double>{-2.0, -2.0, 0.0}));
        EXPECT_EQ(position.maxValues, (std::vector<double>{2.0, 2.0, 0.0}));
        EXPECT_EQ(position.count, 8u) << "corners that agree in every attribute share one vertex";
        for (const Float3& n : accessorData<Float3>(model, primitive.attributes.at("NORMAL")))
            EXPECT_EQ(n, (Float3{0.0f, 0.0f, 1.0f}));
    }
}

TEST(GlbWriter, SplitsVerticesWhoseCornersDisagreeAndAddsDefaultGreyForUnboundFaces) {
    TempDirectory dir;
    ExportScene scene = framedSquare();
    ExportMesh& mesh = scene.meshes[0];
    mesh.uvs.clear();
    mesh.normals[0] = {0.0f, 1.0f, 0.0f}; // a crease at vertex 0 of triangle 0
    mesh.primitives.resize(1);            // the blue side is now bound to nothing
    ASSERT_TRUE(writeGlb(scene, dir / "split.glb"));

    const tinygltf::Model model = loadGlb(dir / "split.glb");
    ASSERT_EQ(model.materials.size(), 3u);
    EXPECT_EQ(model.materials[2].pbrMetallicRoughness.baseColorFactor,
              (std::vector<double>{0.5, 0.5, 0.5, 1.0}));
    const auto& primitives = model.meshes.at(0).primitives;
    ASSERT_EQ(primitives.size(), 2u);
    EXPECT_EQ(primitives[1].material, 2);
    EXPECT_EQ(primitiveCorners(model, primitives[1]), expectedCorners(mesh, {2, 3, 4, 5}));
    EXPECT_FALSE(primitives[0].attributes.contains("TEXCOORD_0"));
    EXPECT_FALSE(primitives[0].attributes.contains("COLOR_0"));
    EXPECT_EQ(model.accessors[primitives[0].attributes.at("POSITION")].count, 9u);
}

TEST(GlbWriter, ReportsUnwritablePath) {
    TempDirectory dir;
    const ExportStatus status = writeGlb(framedSquare(), dir / "missing" / "frame.glb");
    EXPECT_EQ(status.code, ExportCode::kWriteFailed);
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
}

} // namespace
} // namespace oz::exporter::test
