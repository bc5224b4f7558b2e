#include "CutChecks.h"
#include "MeshTestShapes.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/ShapeLibrary.h"
#include "mesh/ShapeMemo.h"

#include <cmath>
#include <gtest/gtest.h>
#include <thread>

namespace oz::mesh {
namespace {

using namespace test;

// Points on a grid of 1/1024, as a text lays its letters out, so that copies moved by whole units
// are exact translates.
std::vector<Point3> onGrid(std::vector<Point3> points, double x = 0.0, double y = 0.0) {
    for (Point3& p : points)
        p = {x + std::round(p.x * 1024) / 1024, y + std::round(p.y * 1024) / 1024, 0.0};
    return points;
}

// A ring with a notch, so that its cut is not a fan: a letter-like face with a hole.
std::vector<Point3> notchedRing(double x, double y) {
    std::vector<Point3> points = concat({circle(0, 0, 2.0, 24), circle(0, -1.0, 0.4, 8, true)});
    points[6] = {0.0, 1.0, 0.0};
    return onGrid(points, x, y);
}

Mesh ringsAt(std::initializer_list<std::pair<double, double>> places) {
    Mesh mesh;
    for (const auto& [x, y] : places) {
        int32_t face = -1;
        const std::vector<Point3> points = notchedRing(x, y);
        mesh.addPolygon(points, std::vector<int32_t>{24, 8}, false, 0.0, face);
    }
    return mesh;
}

void expectExactCuts(const Mesh& mesh, const Triangulation& cut) {
    for (int32_t f = 0; f < mesh.faceCount(); ++f)
        EXPECT_EQ(cutFault(mesh.faces(), mesh.points(), f, cut.faceTriangles(f), *mesh.faceNormal(f)), "")
            << "face " << f;
}

TEST(ShapeLibrary, ALaterMeshTakesTheCutsOfShapesCutBefore) {
    ShapeLibrary library(1 << 16);
    const Mesh first = ringsAt({{0, 0}, {8, 0}});
    const Triangulation before = triangulateFaces(first.faces(), first.points(), &library);
    EXPECT_EQ(before.counts.planar, 1);
    EXPECT_EQ(before.counts.memo, 1);
    EXPECT_EQ(before.counts.reused, 0);

    // Exact translates elsewhere, as a text edited further along lays its letters out.
    const Mesh second = ringsAt({{-16, 4}, {32, 64}, {64, -8}});
    const Triangulation after = triangulateFaces(second.faces(), second.points(), &library);
    EXPECT_EQ(after.counts.planar, 1) << "a reused cut counts as the kind of cut it was";
    EXPECT_EQ(after.counts.reused, 1);
    EXPECT_EQ(after.counts.memo, 2);
    expectExactCuts(second, after);
    EXPECT_EQ(after.faceTriangles(0).size(), before.faceTriangles(0).size());
}

// The hash samples a few offsets only; a face that differs elsewhere must not take the cut.
TEST(ShapeLibrary, AShapeThatOnlyHashesAlikeIsCutAfresh) {
    ShapeLibrary library(1 << 16);
    const Mesh kept = ringsAt({{0, 0}});
    triangulateFaces(kept.faces(), kept.points(), &library);

    Mesh other = ringsAt({{0, 0}});
    std::vector<Point3> moved(other.points().begin(), other.points().end());
    moved[1].x += 0.25;
    Mesh changed;
    int32_t face = -1;
    changed.addPolygon(moved, std::vector<int32_t>{24, 8}, false, 0.0, face);
    ASSERT_EQ(shapeHash(changed.faces(), changed.points(), 0), shapeHash(kept.faces(), kept.points(), 0))
        << "the test needs a point the hash does not sample";
    const Triangulation cut = triangulateFaces(changed.faces(), changed.points(), &library);
    EXPECT_EQ(cut.counts.reused, 0);
    EXPECT_EQ(cut.counts.planar, 1);
    expectExactCuts(changed, cut);
}

// Offsets that rounded cannot tell an exact translate; such shapes are not kept.
TEST(ShapeLibrary, ShapesWhoseOffsetsRoundAreNotKept) {
    ShapeLibrary library(1 << 16);
    const Mesh far = ringsAt({{1e17, 0.1}});
    ASSERT_FALSE(offsetsExact(far.faces(), far.points(), 0));
    triangulateFaces(far.faces(), far.points(), &library);
    EXPECT_EQ(library.pointCount(), 0u);
}

TEST(ShapeLibrary, AFullLibraryStartsOverInsteadOfGrowing) {
    ShapeLibrary library(100);
    for (int i = 0; i < 20; ++i) {
        // Each a little larger: no two alike.
        Mesh mesh;
        int32_t face = -1;
        mesh.addPolygon(onGrid(circle(0, 0, 1.0 + i / 64.0, 30)), std::vector<int32_t>{30}, false, 0.0, face);
        triangulateFaces(mesh.faces(), mesh.points(), &library);
        EXPECT_LE(library.pointCount(), 100u);
    }
    EXPECT_GT(library.pointCount(), 0u);
}

TEST(ShapeLibrary, ThreadsCuttingTheSameShapesAgreeAndKeepEachOnce) {
    ShapeLibrary library(1 << 16);
    const Mesh mesh = ringsAt({{0, 0}, {8, 0}, {16, 0}});
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round)
                expectExactCuts(mesh, triangulateFaces(mesh.faces(), mesh.points(), &library));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(library.pointCount(), 32u);
}

TEST(ShapeLibrary, MeshesShareOneLibrary) {
    const Mesh first = ringsAt({{3, 5}});
    first.triangulation();
    const Mesh second = ringsAt({{-40, 9}});
    EXPECT_EQ(second.triangulation()->counts.reused, 1);
    expectExactCuts(second, *second.triangulation());
}

} // namespace
} // namespace oz::mesh
