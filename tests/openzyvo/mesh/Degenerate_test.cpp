#include "MeshTestShapes.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sstream>

namespace oz::mesh {
namespace {

using namespace test;

// Whatever GLU makes of a bad face, the triangles may only use the face's own vertices.
void expectTrianglesUseOwnVertices(const Mesh& mesh) {
    const auto triangulation = mesh.triangulation();
    ASSERT_EQ(triangulation->faceCount(), mesh.faceCount());
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        const auto own = mesh.faceVertices(f);
        for (const Triangle& t : triangulation->faceTriangles(f)) {
            for (const int32_t v : t)
                EXPECT_NE(std::find(own.begin(), own.end(), v), own.end()) << "face " << f;
        }
    }
}

TEST(DegenerateFaces, CollinearPointsGiveNoArea) {
    Mesh mesh;
    addFace(mesh, {{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {1.5, 0, 0}}});
    addFace(mesh, {{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}}});
    expectTrianglesUseOwnVertices(mesh);
    EXPECT_NEAR(*mesh.triangulatedArea(0), 0.0, 1e-12);
    EXPECT_NEAR(*mesh.triangulatedArea(1), 0.0, 1e-12);
    EXPECT_EQ(*mesh.faceNormal(0), Vector3{});
    RayHit hit;
    EXPECT_EQ(mesh.closestIntersection({{1, -1, 0}, {0, 1, 0}}, 10.0, 1e-6, hit), Status::Success);
}

TEST(DegenerateFaces, ZeroAreaHoleLeavesTheFaceWhole) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 10), {{2, 2, 0}, {4, 4, 0}, {6, 6, 0}}});
    expectTrianglesUseOwnVertices(mesh);
    EXPECT_NEAR(*mesh.triangulatedArea(0), 100.0, 1e-9);
}

TEST(DegenerateFaces, CrossingLoopsDoNotCrash) {
    Mesh mesh;
    // A bow tie, a hole sticking out of its face, a hole outside its face, a loop touching itself.
    addFace(mesh, {{{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}});
    addFace(mesh, {square(0, 0, 4), reversed(square(3, 1, 2))});
    addFace(mesh, {square(0, 0, 1), reversed(square(5, 5, 1))});
    Mesh touching;
    ASSERT_EQ(
        touching.create(std::vector<Point3>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}},
                        std::vector<int32_t>{7}, std::vector<int32_t>{0, 1, 2, 3, 4, 5, 2}),
        Status::Success);
    expectTrianglesUseOwnVertices(mesh);
    expectTrianglesUseOwnVertices(touching);
    // The bow tie's two lobes cover 2 square units under odd winding.
    EXPECT_NEAR(*mesh.triangulatedArea(0), 2.0, 1e-9);
}

TEST(DegenerateFaces, UnusableCoordinatesGiveNoTriangles) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    Mesh mesh;
    addFace(mesh, {{{0, 0, 0}, {1, 0, 0}, {nan, 1, 0}, {0, 1, 0}, {-1, 0.5, 0}}});
    addFace(mesh, {square(0, 0, 1e200), reversed(square(1, 1, 1))});
    addFace(mesh, {{{0, 0, 0}, {inf, 0, 0}, {1, 1, 0}, {0, 1, 0}, {-1, 0.5, 0}}});
    addFace(mesh, {square(0, 0, 1)});
    expectTrianglesUseOwnVertices(mesh);
    EXPECT_TRUE(mesh.triangulation()->faceTriangles(0).empty());
    EXPECT_TRUE(mesh.triangulation()->faceTriangles(1).empty());
    EXPECT_TRUE(mesh.triangulation()->faceTriangles(2).empty());
    EXPECT_EQ(mesh.triangulation()->faceTriangles(3).size(), 2u);
}

TEST(DegenerateFaces, RandomTangledFacesDoNotCrash) {
    std::mt19937 random(1234);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    std::uniform_int_distribution<int> size(3, 12);
    std::uniform_int_distribution<int> holes(0, 3);
    Mesh mesh;
    for (int f = 0; f < 300; ++f) {
        std::vector<Point3> points;
        std::vector<int32_t> counts;
        for (int l = 0, n = holes(random) + 1; l < n; ++l) {
            counts.push_back(size(random));
            for (int i = 0; i < counts.back(); ++i) {
                // Snap to a coarse grid now and then so that points, edges and loops coincide.
                Point3 p{coordinate(random), coordinate(random), f % 3 == 0 ? coordinate(random) * 0.1 : 0.0};
                if (i % 2 == 0)
                    p = {std::round(p.x * 2) / 2, std::round(p.y * 2) / 2, p.z};
                points.push_back(p);
            }
        }
        int32_t face = -1;
        mesh.addPolygon(points, counts, f % 2 == 0, 1e-3, face);
    }
    expectTrianglesUseOwnVertices(mesh);
}

// Faces that once broke triangulation, one per file in tests/data/mesh: lines of "x y z", a
// blank line between loops, the outer loop first.
std::vector<std::vector<Point3>> readFace(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::vector<std::vector<Point3>> loops(1);
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line[0] == '#')
            continue;
        std::istringstream fields(line);
        Point3 p;
        if (fields >> p.x >> p.y >> p.z)
            loops.back().push_back(p);
        else if (!loops.back().empty())
            loops.emplace_back();
    }
    if (loops.back().empty())
        loops.pop_back();
    return loops;
}

TEST(DegenerateFaces, RegressionCorpusReplays) {
    const std::filesystem::path dir = std::filesystem::path(ZYVO_TEST_DATA_DIR) / "mesh";
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(dir)) {
        if (entry.path().extension() != ".face")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        const auto loops = readFace(entry.path());
        std::vector<Point3> points;
        std::vector<int32_t> counts;
        for (const auto& loop : loops) {
            points.insert(points.end(), loop.begin(), loop.end());
            counts.push_back(static_cast<int32_t>(loop.size()));
        }
        Mesh mesh;
        int32_t face = -1;
        ASSERT_EQ(mesh.addPolygon(points, counts, false, 0.0, face), Status::Success);
        expectTrianglesUseOwnVertices(mesh);
        ++replayed;
    }
    EXPECT_GT(replayed, 0);
}

} // namespace
} // namespace oz::mesh
