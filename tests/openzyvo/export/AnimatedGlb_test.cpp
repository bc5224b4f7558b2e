#include "ExportTestScene.h"
#include "export/GlbWriter.h"
#include "export/TrsFit.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <tiny_gltf.h>

// Animated glTF files read back as a viewer reads them.
namespace oz::exporter::test {
namespace {

tinygltf::Model loadGlb(const std::filesystem::path& path) {
    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    EXPECT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, path.string())) << error;
    return model;
}

// The checks a glTF validator makes of the parts an animation adds: every accessor inside its buffer
// view and its buffer, positions and animation times within their declared bounds, and every index to
// a node, mesh, material, sampler or accessor naming one that exists.
void expectWellFormed(const tinygltf::Model& model) {
    const auto componentSize = [](int type) {
        return type == TINYGLTF_TYPE_SCALAR ? 1
               : type == TINYGLTF_TYPE_VEC2 ? 2
               : type == TINYGLTF_TYPE_VEC3 ? 3
                                            : 4;
    };
    for (const tinygltf::Accessor& accessor : model.accessors) {
        ASSERT_GE(accessor.bufferView, 0);
        ASSERT_LT(static_cast<std::size_t>(accessor.bufferView), model.bufferViews.size());
        const tinygltf::BufferView& view = model.bufferViews[static_cast<std::size_t>(accessor.bufferView)];
        EXPECT_LE(accessor.byteOffset + accessor.count * 4 * componentSize(accessor.type), view.byteLength);
        ASSERT_LT(static_cast<std::size_t>(view.buffer), model.buffers.size());
        EXPECT_LE(view.byteOffset + view.byteLength,
                  model.buffers[static_cast<std::size_t>(view.buffer)].data.size());
        EXPECT_EQ(view.byteOffset % 4, 0u);
    }
    const auto values = [&](int index) {
        const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(index));
        const tinygltf::BufferView& view =
            model.bufferViews.at(static_cast<std::size_t>(accessor.bufferView));
        std::vector<float> out(accessor.count * static_cast<std::size_t>(componentSize(accessor.type)));
        std::memcpy(out.data(), model.buffers[0].data.data() + view.byteOffset + accessor.byteOffset,
                    out.size() * sizeof(float));
        return out;
    };
    const auto expectBounded = [&](int index) {
        const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(index));
        const std::size_t width = static_cast<std::size_t>(componentSize(accessor.type));
        ASSERT_EQ(accessor.minValues.size(), width);
        ASSERT_EQ(accessor.maxValues.size(), width);
        const std::vector<float> data = values(index);
        for (std::size_t c = 0; c < width; ++c) {
            float low = INFINITY, high = -INFINITY;
            for (std::size_t i = c; i < data.size(); i += width) {
                low = std::min(low, data[i]);
                high = std::max(high, data[i]);
            }
            EXPECT_EQ(low, static_cast<float>(accessor.minValues[c]));
            EXPECT_EQ(high, static_cast<float>(accessor.maxValues[c]));
        }
    };
    for (const tinygltf::Mesh& mesh : model.meshes)
        for (const tinygltf::Primitive& primitive : mesh.primitives) {
            expectBounded(primitive.attributes.at("POSITION"));
            ASSERT_LT(static_cast<std::size_t>(primitive.material), model.materials.size());
        }
    for (const tinygltf::Node& node : model.nodes)
        ASSERT_LT(static_cast<std::size_t>(node.mesh), model.meshes.size());
    for (const tinygltf::Scene& scene : model.scenes)
        for (int node : scene.nodes)
            ASSERT_LT(static_cast<std::size_t>(node), model.nodes.size());
    for (const tinygltf::Animation& animation : model.animations) {
        for (const tinygltf::AnimationSampler& sampler : animation.samplers) {
            expectBounded(sampler.input);
            const std::vector<float> times = values(sampler.input);
            EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
            EXPECT_EQ(model.accessors.at(static_cast<std::size_t>(sampler.output)).count, times.size());
        }
        for (const tinygltf::AnimationChannel& channel : animation.channels) {
            ASSERT_LT(static_cast<std::size_t>(channel.sampler), animation.samplers.size());
            ASSERT_LT(static_cast<std::size_t>(channel.target_node), model.nodes.size());
        }
    }
}

template <class T> std::vector<T> accessorData(const tinygltf::Model& model, int index) {
    const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(index));
    const tinygltf::BufferView& view = model.bufferViews.at(static_cast<std::size_t>(accessor.bufferView));
    std::vector<T> out(accessor.count);
    std::memcpy(out.data(), model.buffers[0].data.data() + view.byteOffset + accessor.byteOffset,
                out.size() * sizeof(T));
    return out;
}

// Where each node puts its mesh's vertices at sample `frame`, from the animation's channels alone.
std::vector<std::vector<Float3>> posed(const tinygltf::Model& model, std::size_t frame) {
    std::vector<Trs> poses(model.nodes.size());
    for (const tinygltf::AnimationChannel& channel : model.animations.at(0).channels) {
        const tinygltf::AnimationSampler& sampler =
            model.animations[0].samplers.at(static_cast<std::size_t>(channel.sampler));
        Trs& pose = poses.at(static_cast<std::size_t>(channel.target_node));
        if (channel.target_path == "rotation") {
            const Float4 q = accessorData<Float4>(model, sampler.output).at(frame);
            pose.rotation = {q[0], q[1], q[2], q[3]};
        } else {
            const Float3 v = accessorData<Float3>(model, sampler.output).at(frame);
            (channel.target_path == "translation" ? pose.translation : pose.scale) = {v[0], v[1], v[2]};
        }
    }
    std::vector<std::vector<Float3>> out;
    for (std::size_t n = 0; n < model.nodes.size(); ++n) {
        const tinygltf::Mesh& mesh = model.meshes.at(static_cast<std::size_t>(model.nodes[n].mesh));
        std::vector<Float3> points;
        for (const Float3& p : accessorData<Float3>(model, mesh.primitives.at(0).attributes.at("POSITION"))) {
            const Double3 q = applyTrs(poses[n], {p[0], p[1], p[2]});
            points.push_back({static_cast<float>(q[0]), static_cast<float>(q[1]), static_cast<float>(q[2])});
        }
        out.push_back(points);
    }
    return out;
}

// The framed square, and beside it a copy given as one vertex group that turns, rises and stretches
// along x from frame to frame.
std::vector<ExportScene> turningSquares(int frames) {
    std::vector<ExportScene> out;
    for (int f = 0; f < frames; ++f) {
        ExportScene scene = framedSquare();
        scene.meshes.push_back(movedSquare({10.0f, 0.0f, 0.0f}, "second"));
        scene.meshes[1].vertexGroups.push_back({"second_group7", {0, 1, 2, 3, 4, 5, 6, 7}});
        Trs turn;
        const double angle = 0.3 * f;
        turn.rotation = {0.0, 0.0, std::sin(angle / 2), std::cos(angle / 2)};
        turn.translation = {0.0, 0.5 * f, 0.0};
        turn.scale = {1.0 + 0.1 * f, 1.0, 1.0};
        for (Float3& p : scene.meshes[1].positions) {
            const Double3 q = applyTrs(turn, {p[0] - 10.0, p[1], p[2]});
            p = {static_cast<float>(q[0] + 10.0), static_cast<float>(q[1]), static_cast<float>(q[2])};
        }
        out.push_back(std::move(scene));
    }
    return out;
}

std::vector<double> numbers(std::size_t count) {
    std::vector<double> out;
    for (std::size_t i = 0; i < count; ++i)
        out.push_back(static_cast<double>(i + 1));
    return out;
}

std::vector<double> seconds(std::size_t count) {
    std::vector<double> out;
    for (std::size_t i = 0; i < count; ++i)
        out.push_back(static_cast<double>(i + 1) / 24.0);
    return out;
}

TEST(AnimatedGlb, EveryFrameReplaysFromTheChannels) {
    TempDirectory dir;
    const std::vector<ExportScene> frames = turningSquares(5);
    ASSERT_TRUE(writeAnimatedGlb(frames, numbers(5), seconds(5), dir / "anim.glb"));
    const tinygltf::Model model = loadGlb(dir / "anim.glb");
    expectWellFormed(model);
    ASSERT_EQ(model.nodes.size(), 2u);
    EXPECT_EQ(model.nodes[1].name, "second_group7");
    ASSERT_EQ(model.animations.size(), 1u);
    EXPECT_EQ(model.animations[0].channels.size(), 6u);
    for (std::size_t f = 0; f < frames.size(); ++f) {
        const std::vector<std::vector<Float3>> pose = posed(model, f);
        for (std::size_t m = 0; m < 2; ++m) {
            // The file welds corners, so each written vertex is matched to the nearest of the frame's.
            for (const Float3& p : pose[m]) {
                double nearest = 1e30;
                for (const Float3& q : frames[f].meshes[m].positions)
                    nearest = std::min<double>(nearest, std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]));
                EXPECT_LT(nearest, 1e-4 * 4.0) << "frame " << f << " mesh " << m;
            }
        }
    }
}

TEST(AnimatedGlb, APieceThatBendsIsNamedWithItsFrame) {
    TempDirectory dir;
    std::vector<ExportScene> frames = turningSquares(3);
    frames[2].meshes[1].positions[5][2] += 0.5f;
    const ExportStatus status = writeAnimatedGlb(frames, {4, 5, 6}, seconds(3), dir / "anim.glb");
    ASSERT_FALSE(status);
    EXPECT_NE(status.message.find("'second_group7' at frame 6"), std::string::npos) << status.message;
    EXPECT_FALSE(std::filesystem::exists(dir / "anim.glb"));
}

TEST(AnimatedGlb, FramesWithOtherVerticesAreRefused) {
    TempDirectory dir;
    std::vector<ExportScene> frames = turningSquares(2);
    frames[1].meshes.pop_back();
    const ExportStatus status = writeAnimatedGlb(frames, numbers(2), seconds(2), dir / "anim.glb");
    ASSERT_FALSE(status);
    EXPECT_NE(status.message.find("frame 2"), std::string::npos) << status.message;
}

TEST(AnimatedGlb, TrianglesJoiningTwoPiecesAreRefused) {
    TempDirectory dir;
    std::vector<ExportScene> frames = turningSquares(2);
    for (ExportScene& scene : frames)
        scene.meshes[1].vertexGroups = {{"left", {0, 3, 4, 7}}, {"right", {1, 2, 5, 6}}};
    const ExportStatus status = writeAnimatedGlb(frames, numbers(2), seconds(2), dir / "anim.glb");
    ASSERT_FALSE(status);
    EXPECT_NE(status.message.find("joins the pieces"), std::string::npos) << status.message;
}

TEST(AnimatedGlb, AGroupNamingAMissingVertexIsRefused) {
    TempDirectory dir;
    std::vector<ExportScene> frames = turningSquares(2);
    frames[0].meshes[1].vertexGroups[0].vertices.push_back(400);
    const ExportStatus status = writeAnimatedGlb(frames, numbers(2), seconds(2), dir / "anim.glb");
    ASSERT_FALSE(status);
    EXPECT_NE(status.message.find("vertex 400"), std::string::npos) << status.message;
}

} // namespace
} // namespace oz::exporter::test
