#include "ProgramRunner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <tiny_gltf.h>

// `zyvo export ... --frames A:B` into a .glb without a frame number pattern: one animated glTF that
// replays what the frame by frame export writes.
namespace {

namespace fs = std::filesystem;
using Float3 = std::array<float, 3>;

tinygltf::Model load(const fs::path& path) {
    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    EXPECT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, path.string())) << error;
    return model;
}

template <class T> std::vector<T> values(const tinygltf::Model& model, int index) {
    const tinygltf::Accessor& accessor = model.accessors.at(static_cast<std::size_t>(index));
    const tinygltf::BufferView& view = model.bufferViews.at(static_cast<std::size_t>(accessor.bufferView));
    std::vector<T> out(accessor.count);
    std::memcpy(out.data(), model.buffers.at(0).data.data() + view.byteOffset + accessor.byteOffset,
                out.size() * sizeof(T));
    return out;
}

// Every vertex the file shows at animation sample `sample` (all of them for a file without animation),
// each node's mesh placed by the node's channels, evaluated here as a viewer does: scale, then the
// quaternion's turn, then the translation.
std::vector<Float3> shown(const tinygltf::Model& model, std::size_t sample) {
    struct Pose {
        std::array<double, 3> t{0, 0, 0};
        std::array<double, 4> r{0, 0, 0, 1};
        std::array<double, 3> s{1, 1, 1};
    };
    std::vector<Pose> poses(model.nodes.size());
    for (const tinygltf::Animation& animation : model.animations)
        for (const tinygltf::AnimationChannel& channel : animation.channels) {
            const int output = animation.samplers.at(static_cast<std::size_t>(channel.sampler)).output;
            Pose& pose = poses.at(static_cast<std::size_t>(channel.target_node));
            if (channel.target_path == "rotation") {
                const auto q = values<std::array<float, 4>>(model, output).at(sample);
                pose.r = {q[0], q[1], q[2], q[3]};
            } else {
                const Float3 v = values<Float3>(model, output).at(sample);
                (channel.target_path == "translation" ? pose.t : pose.s) = {v[0], v[1], v[2]};
            }
        }
    std::vector<Float3> out;
    for (std::size_t n = 0; n < model.nodes.size(); ++n) {
        const Pose& pose = poses[n];
        const tinygltf::Mesh& mesh = model.meshes.at(static_cast<std::size_t>(model.nodes[n].mesh));
        for (const Float3& p : values<Float3>(model, mesh.primitives.at(0).attributes.at("POSITION"))) {
            const double x = p[0] * pose.s[0], y = p[1] * pose.s[1], z = p[2] * pose.s[2];
            const double qx = pose.r[0], qy = pose.r[1], qz = pose.r[2], qw = pose.r[3];
            const double cx = qy * z - qz * y, cy = qz * x - qx * z, cz = qx * y - qy * x;
            const double ux = qy * cz - qz * cy, uy = qz * cx - qx * cz, uz = qx * cy - qy * cx;
            out.push_back({static_cast<float>(x + 2 * (qw * cx + ux) + pose.t[0]),
                           static_cast<float>(y + 2 * (qw * cy + uy) + pose.t[1]),
                           static_cast<float>(z + 2 * (qw * cz + uz) + pose.t[2])});
        }
    }
    return out;
}

// The largest distance from a vertex of `a` to the nearest vertex of `b`, and back.
double distance(std::vector<Float3> a, std::vector<Float3> b) {
    const auto oneWay = [](const std::vector<Float3>& from, std::vector<Float3> to) {
        std::sort(to.begin(), to.end());
        double worst = 0.0;
        for (const Float3& p : from) {
            double nearest = 1e30;
            auto it = std::lower_bound(to.begin(), to.end(), Float3{p[0] - 1e-3f, -1e30f, -1e30f});
            for (; it != to.end() && (*it)[0] <= p[0] + 1e-3f; ++it)
                nearest = std::min(nearest, std::hypot(double((*it)[0] - p[0]), double((*it)[1] - p[1]),
                                                       double((*it)[2] - p[2])));
            worst = std::max(worst, nearest);
        }
        return worst;
    };
    return std::max(oneWay(a, b), oneWay(b, a));
}

double height(const std::vector<Float3>& points) {
    float low = INFINITY, high = -INFINITY;
    for (const Float3& p : points) {
        low = std::min(low, p[1]);
        high = std::max(high, p[1]);
    }
    return high - low;
}

TEST(AnimatedExport, TheExampleReplaysEveryFrameItsLettersDropIn) {
    TempFolder folder;
    const fs::path scene = fs::path(ZYVO_SOURCE_DIR) / "examples/letters_drop_in.zys";
    const ProgramResult animated = runZyvo({"export", "typeMesh1", (folder / "drop.glb").string(), "--frames",
                                            "1:40:3", "--scene", scene.string()});
    ASSERT_EQ(animated.exitCode, 0) << animated.err;
    const ProgramResult frames = runZyvo({"export", "typeMesh1", (folder / "drop.##.glb").string(),
                                          "--frames", "1:40:3", "--scene", scene.string()});
    ASSERT_EQ(frames.exitCode, 0) << frames.err;

    const tinygltf::Model model = load(folder / "drop.glb");
    ASSERT_EQ(model.animations.size(), 1u);
    // One node per letter of "Drop".
    EXPECT_EQ(model.nodes.size(), 4u);
    const double textHeight = height(shown(load(folder / "drop.40.glb"), 0));
    ASSERT_GT(textHeight, 0.0);
    for (int frame = 1, sample = 0; frame <= 40; frame += 3, ++sample) {
        char name[32];
        std::snprintf(name, sizeof name, "drop.%02d.glb", frame);
        const double off =
            distance(shown(model, static_cast<std::size_t>(sample)), shown(load(folder / name), 0));
        EXPECT_LE(off, 1e-4 * textHeight) << "frame " << frame;
    }
}

TEST(AnimatedExport, ALetterThatDoesNotMoveAsOnePieceIsNamedAndNothingIsWritten) {
    TempFolder folder;
    // "hi" with the deformer told nothing of the characters: it moves every shell on its own, so the dot
    // of the "i" drops apart from its stem.
    std::ifstream example(fs::path(ZYVO_SOURCE_DIR) / "examples/letters_drop_in.zys");
    const std::string text((std::istreambuf_iterator<char>(example)), std::istreambuf_iterator<char>());
    const fs::path scene = folder.write(
        "apart.zys", text + "setAttr -type \"string\" type1.textInput \"68 69\";\n"
                            "disconnectAttr typeExtrude1.vertexGroupIds shellDeformer1.vertexGroupIds;\n"
                            "disconnectAttr type1.grouping shellDeformer1.grouping;\n"
                            "setAttr shellDeformer1.randomDelay 0;\n");
    const ProgramResult result = runZyvo({"export", "typeMesh1", (folder / "deep.glb").string(), "--frames",
                                          "1:30", "--scene", scene.string()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("cannot animate 'typeMesh1_group"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("at frame 14:"), std::string::npos) << result.err;
    EXPECT_FALSE(fs::exists(folder / "deep.glb"));
}

} // namespace
