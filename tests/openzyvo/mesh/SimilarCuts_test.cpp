#include "CutChecks.h"
#include "MeshTestShapes.h"
#include "mesh/FaceTriangulation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace oz::mesh {
namespace {

using namespace test;

// `loop` scaled about the origin, then moved by an offset no coordinate takes exactly, so that
// the copy is no translate of the original.
std::vector<Point3> scaledAndMoved(const std::vector<Point3>& loop, double scale) {
    std::vector<Point3> copy;
    for (const Point3& p : loop)
        copy.push_back({scale * p.x + 10.1, scale * p.y + 0.3, 0});
    return copy;
}

// A box with a notch pressed into its top between two corners; `notch` is the notch's deepest
// point. Wherever the notch lies, the box has one reflex corner, at the notch.
std::vector<Point3> notchedBox(Point3 notch) {
    return {{0, 0, 0}, {6, 0, 0}, {6, 4, 0}, {4, 4, 0}, notch, {2, 4, 0}, {0, 4, 0}};
}

TEST(SimilarCuts, FacesAlikeTakeTheCutOfTheFirstOnlyWhereItFits) {
    const std::vector<Point3> outline = circle(0, 0, 3, 12);
    const std::vector<Point3> hole = reversed(square(-1, -1, 1));
    const std::vector<Point3> otherHole = reversed(square(0.5, 0.5, 0.8));
    Mesh mesh;
    addFace(mesh, {outline, hole, otherHole});
    addFace(mesh, {scaledAndMoved(outline, 0.7), scaledAndMoved(hole, 0.7), scaledAndMoved(otherHole, 0.7)});
    // The box with its notch low is cut with a triangle from the box's right foot over the notch
    // to its corner; with the notch pushed to the right, that triangle turns over, and the second
    // box is cut afresh.
    addFace(mesh, {notchedBox({3, 1, 0})});
    addFace(mesh, {notchedBox({5, 3, 0})});
    // A square with a corner given twice is cut as the square it is; the cut of those four points
    // leaves out half of a box of five points.
    addFace(mesh, {{{0, 0, 0}, {4, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}}});
    addFace(mesh, {{{0, 0, 0}, {2, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}}});

    const Triangulation cut = triangulateFaces(mesh.faces(), mesh.points());
    EXPECT_EQ(cut.counts.planar, 6);
    EXPECT_EQ(cut.counts.memo, 0);
    EXPECT_EQ(cut.counts.similar, 1);
    for (int32_t f = 0; f < mesh.faceCount(); ++f)
        EXPECT_EQ(cutFault(mesh.faces(), mesh.points(), f, cut.faceTriangles(f), *mesh.faceNormal(f)), "")
            << "face " << f;
}

// Which faces a thread cuts first used to decide which earlier cut a face alike took, so a mesh
// of many faces came out with other triangles in every run.
TEST(SimilarCuts, CutDoesNotDependOnWhichThreadTookWhichFaces) {
    Mesh mesh;
    for (int f = 0; f < 20000; ++f) {
        // Notches spread over the box by the golden ratio: some cuts fit the next box, some not.
        const double u = std::fmod(0.618033988749895 * f, 1.0);
        const double v = std::fmod(0.754877666246693 * f, 1.0);
        std::vector<Point3> box = notchedBox({2.5 + 3.0 * u, 0.5 + 3.0 * v, 0});
        for (Point3& p : box)
            p = p + Point3{7.0 * (f % 100), 5.0 * (f / 100), 0};
        addFace(mesh, {box});
    }
    const Triangulation first = triangulateFaces(mesh.faces(), mesh.points());
    ASSERT_GT(first.counts.similar, 0);
    ASSERT_LT(first.counts.similar, mesh.faceCount());
    for (int run = 0; run < 8; ++run) {
        const Triangulation again = triangulateFaces(mesh.faces(), mesh.points());
        ASSERT_TRUE(std::equal(again.triangles.begin(), again.triangles.end(), first.triangles.begin(),
                               first.triangles.end()))
            << "run " << run;
    }
}

} // namespace
} // namespace oz::mesh
