#include "ExportTestScene.h"
#include "export/ObjWriter.h"

#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace oz::exporter::test {
namespace {

// Just enough of an OBJ reader to check what the writer claims: counts, groups, bounds and faces resolved
// to positions (so that index offsets across objects are checked too).
struct ObjFile {
    std::vector<std::vector<float>> vertices; // x y z, plus r g b when coloured
    std::size_t uvCount = 0;
    std::vector<Float3> normals;
    std::vector<std::string> objects;
    std::string materialLibrary;
    std::vector<std::pair<std::string, std::size_t>> groups; // usemtl name, face count
    std::vector<std::array<Float3, 3>> faces;                // resolved positions
    bool indicesValid = true;
};

ObjFile readObj(const std::filesystem::path& path) {
    ObjFile obj;
    std::ifstream in(path);
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string tag;
        words >> tag;
        if (tag == "v") {
            obj.vertices.emplace_back();
            for (float x; words >> x;)
                obj.vertices.back().push_back(x);
        } else if (tag == "vt") {
            ++obj.uvCount;
        } else if (tag == "vn") {
            Float3 n;
            words >> n[0] >> n[1] >> n[2];
            obj.normals.push_back(n);
        } else if (tag == "o") {
            obj.objects.emplace_back();
            words >> obj.objects.back();
        } else if (tag == "mtllib") {
            words >> obj.materialLibrary;
        } else if (tag == "usemtl") {
            obj.groups.emplace_back();
            words >> obj.groups.back().first;
        } else if (tag == "f") {
            std::array<Float3, 3> face{};
            int corners = 0;
            for (std::string corner; words >> corner; ++corners) {
                std::size_t v = 0, vt = 0, vn = 0;
                char slash;
                std::istringstream parts(corner);
                parts >> v >> slash;
                if (parts.peek() != '/')
                    parts >> vt;
                parts >> slash >> vn;
                obj.indicesValid = obj.indicesValid && v >= 1 && v <= obj.vertices.size() &&
                                   vt <= obj.uvCount && vn >= 1 && vn <= obj.normals.size();
                if (corners < 3 && v >= 1 && v <= obj.vertices.size())
                    face[corners] = {obj.vertices[v - 1][0], obj.vertices[v - 1][1], obj.vertices[v - 1][2]};
            }
            obj.indicesValid = obj.indicesValid && corners == 3 && !obj.groups.empty();
            if (!obj.groups.empty())
                ++obj.groups.back().second;
            obj.faces.push_back(face);
        }
    }
    return obj;
}

std::map<std::string, std::array<float, 3>> readMtlDiffuse(const std::filesystem::path& path) {
    std::map<std::string, std::array<float, 3>> diffuse;
    std::ifstream in(path);
    std::string line, current;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string tag;
        words >> tag;
        if (tag == "newmtl")
            words >> current;
        else if (tag == "Kd")
            words >> diffuse[current][0] >> diffuse[current][1] >> diffuse[current][2];
    }
    return diffuse;
}

std::array<Float3, 3> trianglePositions(const ExportMesh& mesh, std::uint32_t t) {
    const Triangle& tri = mesh.triangles[t];
    return {mesh.positions[tri[0]], mesh.positions[tri[1]], mesh.positions[tri[2]]};
}

TEST(ObjWriter, WritesTrianglesGroupedByMaterialWithLibraryBeside) {
    TempDirectory dir;
    const ExportScene scene = framedSquare();
    ASSERT_TRUE(writeObj(scene, dir / "frame.obj"));

    const ObjFile obj = readObj(dir / "frame.obj");
    EXPECT_TRUE(obj.indicesValid);
    EXPECT_EQ(obj.vertices.size(), 8u);
    EXPECT_EQ(obj.uvCount, 8u) << "equal UVs at shared vertices are written once";
    ASSERT_EQ(obj.normals.size(), 1u) << "the flat ring has one normal direction";
    EXPECT_FLOAT_EQ(obj.normals[0][2], 1.0f);
    EXPECT_EQ(obj.objects, std::vector<std::string>{"frame"});
    EXPECT_EQ(obj.materialLibrary, "frame.mtl");
    using Group = std::pair<std::string, std::size_t>;
    EXPECT_EQ(obj.groups, (std::vector<Group>{{"redSG", 4}, {"blueSG", 4}}));

    // Faces keep their winding and land in their material's block.
    const ExportMesh& mesh = scene.meshes[0];
    ASSERT_EQ(obj.faces.size(), 8u);
    std::size_t face = 0;
    for (const ExportPrimitive& primitive : mesh.primitives)
        for (std::uint32_t t : primitive.triangles)
            EXPECT_EQ(obj.faces[face++], trianglePositions(mesh, t));

    Float3 low{1e9f, 1e9f, 1e9f}, high{-1e9f, -1e9f, -1e9f};
    for (const auto& v : obj.vertices)
        for (int i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], v[i]);
            high[i] = std::max(high[i], v[i]);
        }
    EXPECT_EQ(low, (Float3{-2.0f, -2.0f, 0.0f}));
    EXPECT_EQ(high, (Float3{2.0f, 2.0f, 0.0f}));

    const auto diffuse = readMtlDiffuse(dir / "frame.mtl");
    ASSERT_EQ(diffuse.size(), 2u) << "no default material when every triangle is bound";
    EXPECT_EQ(diffuse.at("redSG"), (std::array<float, 3>{kRed[0], kRed[1], kRed[2]}));
    EXPECT_EQ(diffuse.at("blueSG"), (std::array<float, 3>{kBlue[0], kBlue[1], kBlue[2]}));
}

TEST(ObjWriter, SecondObjectIndexesItsOwnVerticesAndUnboundFacesGetDefaultGrey) {
    TempDirectory dir;
    ExportScene scene = framedSquare();
    ExportMesh moved = movedSquare({10.0f, 0.0f, 0.0f}, "frame");
    moved.primitives = {{1, {0, 1}}}; // the rest is bound to no shading engine
    moved.normals.clear();            // facet normals instead
    moved.uvs.clear();
    scene.meshes.push_back(moved);
    ASSERT_TRUE(writeObj(scene, dir / "two.obj"));

    const ObjFile obj = readObj(dir / "two.obj");
    EXPECT_TRUE(obj.indicesValid);
    EXPECT_EQ(obj.objects, (std::vector<std::string>{"frame", "frame_2"})) << "object names stay unique";
    ASSERT_EQ(obj.faces.size(), 16u);
    for (std::size_t f = 8; f < 16; ++f)
        for (const Float3& p : obj.faces[f])
            EXPECT_GE(p[0], 8.0f) << "face " << f << " of the second object uses a vertex of the first";
    ASSERT_EQ(obj.groups.size(), 4u);
    EXPECT_EQ(obj.groups[2], (std::pair<std::string, std::size_t>{"blueSG", 2}));
    EXPECT_EQ(obj.groups[3].second, 6u);

    const auto diffuse = readMtlDiffuse(dir / "two.mtl");
    ASSERT_TRUE(diffuse.contains(obj.groups[3].first));
    EXPECT_EQ(diffuse.at(obj.groups[3].first), (std::array<float, 3>{0.5f, 0.5f, 0.5f}));
}

TEST(ObjWriter, WritesVertexColoursAfterPositions) {
    TempDirectory dir;
    ExportScene scene = framedSquare();
    for (std::size_t v = 0; v < 8; ++v)
        scene.meshes[0].colors.push_back({static_cast<float>(v) / 8.0f, 0.5f, 1.0f, 1.0f});
    ASSERT_TRUE(writeObj(scene, dir / "coloured.obj"));

    const ObjFile obj = readObj(dir / "coloured.obj");
    ASSERT_EQ(obj.vertices.size(), 8u);
    for (std::size_t v = 0; v < 8; ++v) {
        ASSERT_EQ(obj.vertices[v].size(), 6u);
        EXPECT_FLOAT_EQ(obj.vertices[v][3], static_cast<float>(v) / 8.0f);
    }
}

TEST(ObjWriter, ReportsUnwritablePaths) {
    TempDirectory dir;
    const ExportScene scene = framedSquare();
    const ExportStatus missingFolder = writeObj(scene, dir / "missing" / "frame.obj");
    EXPECT_EQ(missingFolder.code, ExportCode::kWriteFailed);
    EXPECT_NE(missingFolder.message.find("missing"), std::string::npos) << missingFolder.message;

    std::filesystem::create_directory(dir / "taken.obj");
    EXPECT_EQ(writeObj(scene, dir / "taken.obj").code, ExportCode::kWriteFailed);
}

} // namespace
} // namespace oz::exporter::test
