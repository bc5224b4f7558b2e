#include "MeshTestShapes.h"
#include "mesh/FaceTriangulation.h"

#include <gtest/gtest.h>
#include <vector>

namespace oz::mesh {
namespace {

using test::circle;
using test::square;

// A row of faces of every kind the cutter tells apart, repeated `rows` times: a triangle, convex
// quads split along either diagonal, a dart (a quad that is not convex), a bow tie (a quad whose
// edges cross), a star and a square with a hole.
Mesh mixedFaces(int rows) {
    std::vector<Point3> points;
    std::vector<int32_t> counts;
    std::vector<int32_t> connects;
    std::vector<int32_t> holed;
    auto add = [&](const std::vector<Point3>& loop) {
        counts.push_back(static_cast<int32_t>(loop.size()));
        for (const Point3& p : loop) {
            connects.push_back(static_cast<int32_t>(points.size()));
            points.push_back(p);
        }
    };
    for (int row = 0; row < rows; ++row) {
        const double y = 1.1 * row;
        add({{0, y, 0}, {1, y, 0}, {0, y + 1, 0}});
        add({{2, y, 0}, {3, y, 0}, {3.5, y + 1, 0}, {2, y + 0.5, 0}});
        add({{4, y + 0.5, 0}, {4.5, y, 0}, {4.8, y + 0.5, 0}, {4.5, y + 1, 0}});
        add({{6, y, 0}, {7, y + 0.5, 0}, {6, y + 1, 0}, {6.3, y + 0.5, 0}});
        add({{8, y, 0}, {9, y + 1, 0}, {9, y, 0}, {8, y + 1, 0}});
        std::vector<Point3> star = circle(10.5, y + 0.5, 0.5, 10);
        for (size_t i = 1; i < star.size(); i += 2)
            star[i] = {10.5 + 0.4 * (star[i].x - 10.5), y + 0.5 + 0.4 * (star[i].y - y - 0.5), 0};
        add(star);
        holed.push_back(static_cast<int32_t>(counts.size()));
        add(square(12, y, 1));
    }
    Mesh mesh;
    EXPECT_EQ(mesh.create(points, counts, connects), Status::Success);
    for (const int32_t face : holed) {
        const Point3 corner = mesh.points()[static_cast<size_t>(mesh.outerLoop(face)[0])];
        const auto hole = circle(corner.x + 0.5, corner.y + 0.5, 0.25, 6, true);
        const int32_t size = 6;
        EXPECT_EQ(mesh.addHoles(face, hole, std::span(&size, 1), false, 0.0), Status::Success);
    }
    return mesh;
}

std::vector<Triangle> cutAlone(const Mesh& mesh, int32_t face) {
    FaceLoops one;
    std::vector<int32_t> sizes;
    for (int32_t l = 0; l < mesh.faces().faceLoopCount(face); ++l)
        sizes.push_back(static_cast<int32_t>(mesh.faces().loop(face, l).size()));
    const auto ids = mesh.faceVertices(face);
    one.appendFace(sizes, std::vector<int32_t>(ids.begin(), ids.end()));
    const Triangulation alone = triangulateFaces(one, mesh.points());
    return {alone.triangles.begin(), alone.triangles.end()};
}

// Small meshes are cut on the calling thread and large ones on all cores, with each face's
// triangles laid into place afterwards: either way a face gets the triangles it gets alone.
TEST(FaceTriangulation, EveryFaceOfSmallAndLargeMeshesIsCutAsItIsAlone) {
    for (const int rows : {3, 4000}) {
        const Mesh mesh = mixedFaces(rows);
        const Triangulation all = triangulateFaces(mesh.faces(), mesh.points());
        ASSERT_EQ(all.faceCount(), mesh.faceCount());
        const TriangulationCounts& c = all.counts;
        EXPECT_EQ(c.simple + c.planar + c.memo + c.tessellated, mesh.faceCount());
        EXPECT_GT(c.tessellated, 0);
        EXPECT_EQ(all.faceTriangleStart.back(), static_cast<int32_t>(all.triangles.size()));
        for (int32_t face = 0; face < mesh.faceCount(); ++face) {
            const auto cut = all.faceTriangles(face);
            ASSERT_EQ(std::vector<Triangle>(cut.begin(), cut.end()), cutAlone(mesh, face))
                << "face " << face << " of " << mesh.faceCount();
        }
    }
}

// A quad with a corner on the line between its neighbours is a triangle in disguise: split along
// the diagonal through that corner, it leaves a triangle of no area. Such quads, darts and bow
// ties must not take the quad split, in whichever plane they lie; convex quads, flat or slightly
// twisted, must, with both triangles turning the way the quad does.
TEST(FaceTriangulation, QuadsWithAStraightCornerAreNotSplitThroughIt) {
    struct Case {
        std::vector<Point3> quad;
        bool split;
    };
    const std::vector<Case> cases{
        {{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {1, 5, 0}}, false},
        {{{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {2, 2, 0}}, false},
        {{{0, 0, 0}, {1, 0.5, 0}, {0, 1, 0}, {0.3, 0.5, 0}}, false},
        {{{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}}, false},
        {{{0, 0, 0}, {1, 0, 0}, {1.5, 1, 0}, {0, 0.5, 0}}, true},
        {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0.1}, {0, 1, 0}}, true},
    };
    // Each case also in the other two axis planes and turned about an oblique axis.
    const std::vector<Point3 (*)(Point3)> placements{
        [](Point3 p) { return p; },
        [](Point3 p) {
            return Point3{p.z, p.x, p.y};
        },
        [](Point3 p) {
            return Point3{p.y, p.z, p.x};
        },
        [](Point3 p) {
            return Point3{0.6 * p.x + 0.8 * p.z, 0.48 * p.x + 0.6 * p.y - 0.64 * p.z,
                          -0.64 * p.x + 0.8 * p.y + 0.48 * p.z};
        },
    };
    for (size_t c = 0; c < cases.size(); ++c) {
        for (size_t k = 0; k < placements.size(); ++k) {
            std::vector<Point3> points;
            for (const Point3& p : cases[c].quad)
                points.push_back(placements[k](p));
            Mesh mesh;
            ASSERT_EQ(mesh.create(points, std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 2, 3}),
                      Status::Success);
            const Triangulation t = triangulateFaces(mesh.faces(), mesh.points());
            SCOPED_TRACE(::testing::Message() << "case " << c << ", placement " << k);
            EXPECT_EQ(t.counts.simple == 1, cases[c].split);
            const Vector3 area = cross(points[2] - points[0], points[3] - points[1]);
            for (const auto& [a, b, d] : t.triangles) {
                const Vector3 turn = cross(points[b] - points[a], points[d] - points[a]);
                EXPECT_GT(dot(turn, turn), 1e-12);
                if (cases[c].split) {
                    EXPECT_GT(dot(turn, area), 0.0);
                }
            }
        }
    }
}

} // namespace
} // namespace oz::mesh
