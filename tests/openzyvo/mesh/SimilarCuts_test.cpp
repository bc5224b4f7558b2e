#include "CutChecks.h"
#include "MeshTestShapes.h"
#include "mesh/FaceTriangulation.h"

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

    const Triangulation cut = triangulateFaces(mesh.faces(), mesh.points());
    EXPECT_EQ(cut.counts.planar, 4);
    EXPECT_EQ(cut.counts.memo, 0);
    EXPECT_EQ(cut.counts.similar, 1);
    for (int32_t f = 0; f < mesh.faceCount(); ++f)
        EXPECT_EQ(cutFault(mesh.faces(), mesh.points(), f, cut.faceTriangles(f), *mesh.faceNormal(f)), "")
            << "face " << f;
}

} // namespace
} // namespace oz::mesh
