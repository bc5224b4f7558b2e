#include "export/GlbWriter.h"

#include "export/FileOutput.h"
#include "export/MaterialGroups.h"
#include "export/MeshGeometry.h"
#include "export/SceneValidation.h"
#include "export/TrsFit.h"
#include "export/ValueIndex.h"

#include <algorithm>
#include <cstring>
#include <limits>
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

ExportStatus encode(tinygltf::Model& model, const std::filesystem::path& glbPath) {
    std::ostringstream glb;
    tinygltf::TinyGLTF writer;
    if (!writer.WriteGltfSceneToStream(&model, glb, false, true))
        return ExportStatus::failure(ExportCode::kWriteFailed,
                                     "cannot encode glTF for '" + glbPath.string() + "'");
    return writeFile(glbPath, glb.str());
}

std::string frameText(double frame) {
    std::ostringstream text;
    text << frame;
    return text.str();
}

// One piece of an animated scene: vertices of one mesh that move as one.
struct Piece {
    std::string name;
    std::size_t mesh = 0;
    std::vector<std::uint32_t> vertices;
};

ExportStatus invalid(std::string message) {
    return ExportStatus::failure(ExportCode::kInvalidMesh, std::move(message));
}

// The vertex groups of each mesh, and what of the mesh lies outside them, as pieces; and each piece as a
// mesh of its own (split.meshes[p] for pieces[p]), with the primitives, normals, uvs and colours of its
// triangles.
ExportStatus splitIntoPieces(const ExportScene& scene, std::vector<Piece>& pieces, ExportScene& split) {
    split.materials = scene.materials;
    for (std::size_t m = 0; m < scene.meshes.size(); ++m) {
        const ExportMesh& mesh = scene.meshes[m];
        constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
        std::vector<std::size_t> owner(mesh.positions.size(), kNone);
        const std::size_t first = pieces.size();
        for (const ExportVertexGroup& group : mesh.vertexGroups) {
            Piece piece{group.name, m, {}};
            for (std::uint32_t v : group.vertices) {
                if (v >= owner.size())
                    return invalid("the vertex group '" + group.name + "' names vertex " + std::to_string(v) +
                                   ", which '" + mesh.name + "' does not have");
                if (owner[v] == kNone) {
                    owner[v] = pieces.size();
                    piece.vertices.push_back(v);
                }
            }
            pieces.push_back(std::move(piece));
        }
        Piece rest{mesh.name, m, {}};
        for (const Triangle& triangle : mesh.triangles)
            for (std::uint32_t v : triangle)
                if (owner[v] == kNone) {
                    owner[v] = pieces.size();
                    rest.vertices.push_back(v);
                }
        if (!rest.vertices.empty())
            pieces.push_back(std::move(rest));

        std::vector<std::uint32_t> local(mesh.positions.size(), 0);
        for (std::size_t p = first; p < pieces.size(); ++p) {
            ExportMesh out;
            out.name = pieces[p].name;
            for (std::uint32_t v : pieces[p].vertices) {
                local[v] = static_cast<std::uint32_t>(out.positions.size());
                out.positions.push_back(mesh.positions[v]);
                if (!mesh.colors.empty())
                    out.colors.push_back(mesh.colors[v]);
            }
            split.meshes.push_back(std::move(out));
        }
        std::vector<std::uint32_t> localTriangle(mesh.triangles.size(), 0);
        for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
            const Triangle& triangle = mesh.triangles[t];
            const std::size_t p = owner[triangle[0]];
            if (owner[triangle[1]] != p || owner[triangle[2]] != p)
                return invalid(
                    "a triangle of '" + mesh.name + "' joins the pieces '" + pieces[owner[triangle[0]]].name +
                    "' and '" +
                    pieces[owner[triangle[1]] != p ? owner[triangle[1]] : owner[triangle[2]]].name +
                    "', which cannot move apart");
            ExportMesh& out = split.meshes[p];
            localTriangle[t] = static_cast<std::uint32_t>(out.triangles.size());
            out.triangles.push_back({local[triangle[0]], local[triangle[1]], local[triangle[2]]});
            for (std::size_t c = 0; c < 3; ++c) {
                if (!mesh.normals.empty())
                    out.normals.push_back(mesh.normals[t * 3 + c]);
                if (!mesh.uvs.empty())
                    out.uvs.push_back(mesh.uvs[t * 3 + c]);
            }
        }
        for (const ExportPrimitive& primitive : mesh.primitives)
            for (std::uint32_t t : primitive.triangles) {
                ExportMesh& out = split.meshes[owner[mesh.triangles[t][0]]];
                if (out.primitives.empty() || out.primitives.back().material != primitive.material)
                    out.primitives.push_back({primitive.material, {}});
                out.primitives.back().triangles.push_back(localTriangle[t]);
            }
    }
    return ExportStatus::success();
}

// How far apart points may be and still count as the same: a small part of the scene's height.
double toleranceOf(const ExportScene& scene) {
    Bounds bounds;
    for (const ExportMesh& mesh : scene.meshes)
        for (const Float3& p : mesh.positions)
            bounds.add(p);
    double extent = double{bounds.max[1] - bounds.min[1]};
    if (!(extent > 0.0))
        extent =
            std::max({double{bounds.max[0] - bounds.min[0]}, double{bounds.max[2] - bounds.min[2]}, 1.0});
    return extent * kAnimationTolerance;
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
    return encode(model, glbPath);
}

ExportStatus writeAnimatedGlb(const std::vector<ExportScene>& frames, const std::vector<double>& frameNumbers,
                              const std::vector<double>& seconds, const std::filesystem::path& glbPath) {
    if (frames.empty() || frames.size() != seconds.size() || frames.size() != frameNumbers.size())
        return invalid("an animation needs one scene, one frame number and one time per frame");
    for (std::size_t f = 0; f < frames.size(); ++f) {
        if (ExportStatus status = validateScene(frames[f]); !status)
            return status;
        bool same = frames[f].meshes.size() == frames[0].meshes.size();
        for (std::size_t m = 0; same && m < frames[0].meshes.size(); ++m)
            same = frames[f].meshes[m].positions.size() == frames[0].meshes[m].positions.size();
        if (!same)
            return invalid("the meshes at frame " + frameText(frameNumbers[f]) +
                           " have other vertices than at frame " + frameText(frameNumbers[0]) +
                           "; an animation can only move them");
        if (f > 0 && !(seconds[f] > seconds[f - 1]))
            return invalid("the frames of an animation must follow one another in time");
    }

    std::vector<Piece> pieces;
    ExportScene split;
    if (ExportStatus status = splitIntoPieces(frames[0], pieces, split); !status)
        return status;
    const GroupedScene grouped = groupByMaterial(split);
    const double tolerance = toleranceOf(frames[0]);

    tinygltf::Model model;
    model.asset.version = "2.0";
    model.asset.generator = "zyvo";
    ModelBuilder builder(model);
    for (const ExportMaterial& material : grouped.materials)
        model.materials.push_back(toGltf(material));

    const std::vector<float> times(seconds.begin(), seconds.end());
    const int input = builder.addAccessor(times, TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_SCALAR, 0);
    builder.accessor(input).minValues = {times.front()};
    builder.accessor(input).maxValues = {times.back()};

    tinygltf::Scene gltfScene;
    tinygltf::Animation animation;
    animation.name = "frames " + frameText(frameNumbers.front()) + "-" + frameText(frameNumbers.back());
    for (std::size_t p = 0; p < pieces.size(); ++p) {
        if (grouped.groups[p].empty())
            continue;
        const Piece& piece = pieces[p];
        const std::vector<Float3>& rest = split.meshes[p].positions;
        std::vector<Float3> translations;
        std::vector<Float4> rotations;
        std::vector<Float3> scales;
        std::vector<Float3> moved(rest.size());
        for (std::size_t f = 0; f < frames.size(); ++f) {
            const std::vector<Float3>& positions = frames[f].meshes[piece.mesh].positions;
            for (std::size_t i = 0; i < piece.vertices.size(); ++i)
                moved[i] = positions[piece.vertices[i]];
            const TrsFit fit = fitTrs(rest, moved, tolerance);
            if (!fit.trs)
                return invalid(
                    "cannot animate '" + piece.name + "' at frame " + frameText(frameNumbers[f]) +
                    ": its points do not move by one translation, rotation and scale of its shape at "
                    "frame " +
                    frameText(frameNumbers[0]) + " (the closest fit is " + frameText(fit.largestError) +
                    " off, more than the " + frameText(tolerance) + " allowed)");
            std::array<double, 4> q = fit.trs->rotation;
            // Neighbouring keys on the same side of the sphere, so that the viewer turns the short way.
            if (!rotations.empty()) {
                const Float4& last = rotations.back();
                if (q[0] * last[0] + q[1] * last[1] + q[2] * last[2] + q[3] * last[3] < 0.0)
                    q = {-q[0], -q[1], -q[2], -q[3]};
            }
            const Trs& trs = *fit.trs;
            translations.push_back({static_cast<float>(trs.translation[0]),
                                    static_cast<float>(trs.translation[1]),
                                    static_cast<float>(trs.translation[2])});
            rotations.push_back({static_cast<float>(q[0]), static_cast<float>(q[1]), static_cast<float>(q[2]),
                                 static_cast<float>(q[3])});
            scales.push_back({static_cast<float>(trs.scale[0]), static_cast<float>(trs.scale[1]),
                              static_cast<float>(trs.scale[2])});
        }

        model.meshes.push_back(toGltf(split.meshes[p], grouped.groups[p], builder));
        tinygltf::Node node;
        node.name = piece.name;
        node.mesh = static_cast<int>(model.meshes.size() - 1);
        node.translation.assign(translations[0].begin(), translations[0].end());
        node.rotation.assign(rotations[0].begin(), rotations[0].end());
        node.scale.assign(scales[0].begin(), scales[0].end());
        model.nodes.push_back(node);
        const int nodeIndex = static_cast<int>(model.nodes.size() - 1);
        gltfScene.nodes.push_back(nodeIndex);

        const auto channel = [&](const char* path, int output) {
            tinygltf::AnimationSampler sampler;
            sampler.input = input;
            sampler.output = output;
            sampler.interpolation = "LINEAR";
            animation.samplers.push_back(sampler);
            tinygltf::AnimationChannel target;
            target.sampler = static_cast<int>(animation.samplers.size() - 1);
            target.target_node = nodeIndex;
            target.target_path = path;
            animation.channels.push_back(target);
        };
        channel("translation",
                builder.addAccessor(translations, TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC3, 0));
        channel("rotation",
                builder.addAccessor(rotations, TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC4, 0));
        channel("scale", builder.addAccessor(scales, TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC3, 0));
    }
    if (gltfScene.nodes.empty())
        return ExportStatus::failure(ExportCode::kEmptyScene, "nothing to animate: no mesh holds a triangle");
    model.animations.push_back(std::move(animation));
    model.scenes.push_back(gltfScene);
    model.defaultScene = 0;
    return encode(model, glbPath);
}

} // namespace oz::exporter
