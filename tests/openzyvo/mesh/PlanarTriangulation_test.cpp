#include "CutChecks.h"
#include "MeshTestShapes.h"
#include "mesh/EarClipping.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/GluTessellator.h"
#include "mesh/LoopChecks.h"
#include "mesh/ShapeMemo.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace oz::mesh {
namespace {

using namespace test;

void expectExactCuts(const Mesh& mesh) {
    const auto triangulation = mesh.triangulation();
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        EXPECT_EQ(
            cutFault(mesh.faces(), mesh.points(), f, triangulation->faceTriangles(f), *mesh.faceNormal(f)),
            "")
            << "face " << f;
    }
}

TriangulationCounts countsOf(const Mesh& mesh) {
    return triangulateFaces(mesh.faces(), mesh.points()).counts;
}

// The stem of a sans-serif E: straight runs with points in the middle of them, as flattened
// outlines have wherever a curve meets a line.
std::vector<Point3> letterE() {
    return {{0, 0, 0},   {3, 0, 0},   {6, 0, 0},   {6, 1, 0},   {3, 1, 0}, {1, 1, 0},
            {1, 2.5, 0}, {4, 2.5, 0}, {4, 3.5, 0}, {1, 3.5, 0}, {1, 5, 0}, {6, 5, 0},
            {6, 6, 0},   {3, 6, 0},   {0, 6, 0},   {0, 4.5, 0}, {0, 3, 0}, {0, 1.5, 0}};
}

TEST(PlanarTriangulation, ZeroAreaTrianglesOnCollinearStems) {
    Mesh mesh;
    addFace(mesh, {letterE()});
    // A bar with a point on every edge and a run of five points along its bottom.
    addFace(mesh, {{{0, 0, 0},
                    {1, 0, 0},
                    {2, 0, 0},
                    {3, 0, 0},
                    {4, 0, 0},
                    {4, 1, 0},
                    {2, 1, 0},
                    {0, 1, 0},
                    {0, 0.5, 0}}});
    // A triangle with points on all three sides.
    addFace(mesh, {{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {1.5, 1, 0}, {1, 2, 0}, {0.5, 1, 0}}});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.planar, 3);
    EXPECT_EQ(counts.tessellated, 0);
}

TEST(PlanarTriangulation, HolesOfEitherWindingAreCutOut) {
    Mesh mesh;
    addFace(mesh, {circle(0, 0, 10, 40), circle(-4, 0, 2, 16, true), circle(4, 0, 2, 16), square(-1, 4, 2),
                   reversed(square(-1, -6, 2))});
    expectExactCuts(mesh);
    EXPECT_NEAR(*mesh.triangulatedArea(0),
                std::abs(signedArea(circle(0, 0, 10, 40))) - 2 * std::abs(signedArea(circle(0, 0, 2, 16))) -
                    8.0,
                1e-9);
    EXPECT_EQ(countsOf(mesh).tessellated, 0);
}

// Holes whose leftmost points lie level with corners of the outline and of other holes: the bridge
// must not run through those corners.
TEST(PlanarTriangulation, HoleBridgesPassingCornersStayInside) {
    Mesh mesh;
    addFace(mesh, {{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {0, 6, 0}, {2, 5, 0}, {0, 4, 0}},
                   reversed(square(3, 5, 1)),
                   reversed(square(6, 5, 1)),
                   reversed(square(6, 2, 1)),
                   {{8, 5, 0}, {8.5, 4, 0}, {9, 5, 0}, {8.5, 6, 0}}});
    expectExactCuts(mesh);
    EXPECT_EQ(countsOf(mesh).tessellated, 0);
}

TEST(PlanarTriangulation, NearlyTouchingLoopsStayOnTheFastPath) {
    Mesh mesh;
    const double gap = 1e-12;
    // A hole a hair's breadth from the outline's edge and from a corner of another hole.
    addFace(mesh, {square(0, 0, 4), reversed(square(gap, 1, 1)), reversed(square(1 + gap, 2 + gap, 1))});
    // A slot whose two sides nearly meet.
    addFace(mesh, {{{0, 0, 0},
                    {3, 0, 0},
                    {3, 1, 0},
                    {1 + gap, 1, 0},
                    {1 + gap, 0.5, 0},
                    {1, 0.5, 0},
                    {1, 1, 0},
                    {0, 1, 0}}});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.planar, 2);
    EXPECT_EQ(counts.tessellated, 0);
}

TEST(PlanarTriangulation, TouchingOrCrossingLoopsGoToTheSweep) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 4), reversed(square(0, 1, 1))}); // hole on the edge
    addFace(mesh, {square(0, 0, 4), reversed(square(1, 1, 1)), reversed(square(2, 1, 1))}); // holes meet
    addFace(mesh, {square(0, 0, 4), reversed(square(3, 1, 2))});                            // hole sticks out
    addFace(mesh, {square(0, 0, 4), reversed(square(6, 1, 1))});                            // hole outside
    addFace(mesh, {{{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}});                          // bow tie
    addFace(mesh, {{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {1, 0, 0}, {0, 2, 0}}});               // touches itself
    addFace(mesh, {{{0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {1, 1, 0}}});                          // doubles back
    EXPECT_EQ(countsOf(mesh).tessellated, mesh.faceCount());
    EXPECT_NEAR(*mesh.triangulatedArea(0), 15.0, 1e-9);
}

// Outlines repeat a point where they meet themselves, and a collapsed bevel ring leaves a quad
// with two corners in one place: the zero-length edges bound nothing, so such faces are still
// well formed and stay off the sweep.
TEST(PlanarTriangulation, RepeatedPointsStayOnTheFastPath) {
    Mesh mesh;
    std::vector<Point3> e = letterE();
    e.insert(e.begin() + 5, e[4]);
    std::vector<Point3> hole = reversed(square(0.25, 2, 0.5));
    hole.push_back(hole.front());
    addFace(mesh, {e, hole});
    addFace(mesh, {{{0, 0, 0}, {2, 0, 0}, {2, 0, 0}, {1, 2, 0}}});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.tessellated, 0);
    EXPECT_EQ(counts.planar, 2);
    EXPECT_NEAR(*mesh.triangulatedArea(1), 2.0, 1e-12);
}

TEST(PlanarTriangulation, CutsTurnWithTheFaceNormal) {
    Mesh mesh;
    // The same holed face in the six axis planes, wound both ways, and tilted.
    const std::vector<Point3> outer = circle(0, 0, 3, 12);
    const std::vector<Point3> hole = circle(0.5, 0, 1, 7, true);
    auto mapped = [](std::vector<Point3> loop, auto&& map) {
        for (Point3& p : loop)
            p = map(p);
        return loop;
    };
    const auto maps = {+[](Point3 p) { return p; },
                       +[](Point3 p) {
                           return Point3{p.y, p.x, 0};
                       },
                       +[](Point3 p) {
                           return Point3{0, p.x, p.y};
                       },
                       +[](Point3 p) {
                           return Point3{p.x, 0, p.y};
                       },
                       +[](Point3 p) {
                           return Point3{p.x, p.y * 0.6, p.y * 0.8};
                       }};
    for (const auto& map : maps)
        addFace(mesh, {mapped(outer, map), mapped(hole, map)});
    expectExactCuts(mesh);
    EXPECT_EQ(countsOf(mesh).tessellated, 0);
}

// A comb with `teeth` teeth of uneven height, open at the bottom: two reflex corners per tooth.
std::vector<Point3> comb(int teeth) {
    std::vector<Point3> outline{{0, 0, 0}, {2.0 * teeth + 1, 0, 0}, {2.0 * teeth + 1, 5, 0}};
    for (int i = teeth - 1; i >= 0; --i) {
        const double height = 5.0 + i % 3;
        outline.push_back({2.0 * i + 2, height, 0});
        outline.push_back({2.0 * i + 1, height, 0});
        outline.push_back({2.0 * i + 1, 1, 0});
        outline.push_back({2.0 * i, 1, 0});
    }
    return outline;
}

TEST(PlanarTriangulation, LargeCombUsesTheGridAndStaysExact) {
    // 400 teeth: many reflex corners, far beyond the size where the whole loop is scanned.
    Mesh mesh;
    addFace(mesh, {comb(400), reversed(square(400, 0.2, 0.5)), reversed(square(10, 0.2, 0.5))});
    expectExactCuts(mesh);
    EXPECT_EQ(countsOf(mesh).planar, 1);
}

// A square spiral path of `turns` turns drawn one unit wide, its arms two units apart: its
// reflex corners all face ears on the other wall, and most corners are tried as ears many times
// before they can be cut.
std::vector<Point3> spiral(int turns) {
    std::vector<Point3> path{{0, 0, 0}};
    const double dx[4] = {1, 0, -1, 0};
    const double dy[4] = {0, 1, 0, -1};
    for (int k = 0; k < 4 * turns; ++k) {
        const double length = 2.0 * (k + 1);
        path.push_back(path.back() + Point3{dx[k % 4] * length, dy[k % 4] * length, 0});
    }
    // Each wall point is its path point moved half a unit along the left normals of the segments
    // it joins, which for square turns is the exact corner of the wall.
    auto leftOf = [&](size_t k) {
        Point3 offset{};
        for (const size_t segment : {k - 1, k}) {
            if (segment < path.size() - 1)
                offset = offset + Point3{-dy[segment % 4] * 0.5, dx[segment % 4] * 0.5, 0};
        }
        return offset;
    };
    std::vector<Point3> loop;
    for (size_t k = 0; k < path.size(); ++k)
        loop.push_back(path[k] - leftOf(k));
    for (size_t k = path.size(); k-- > 0;)
        loop.push_back(path[k] + leftOf(k));
    return loop;
}

// Faces from a few points to a few hundred, each with a hole: the clipper looks for the corners
// near an ear in a plain list, in a list sorted by x, or in a grid, by the number of points and
// reflex corners; each way must cut exactly and never fall back to the sweep.
TEST(PlanarTriangulation, FacesOfEverySizeAreCutExactly) {
    Mesh mesh;
    for (int teeth = 1; teeth <= 40; teeth += 3)
        addFace(mesh, {comb(teeth), reversed(square(teeth, 0.2, 0.5))});
    for (int segments = 6; segments <= 160; segments += 11)
        addFace(mesh, {circle(0, 0, 10, segments), circle(1, 0, 3, segments / 2, true), square(-6, -1, 2)});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.tessellated, 0);
    EXPECT_EQ(counts.planar + counts.memo, mesh.faceCount());
}

TEST(PlanarTriangulation, SpiralsAreCutExactly) {
    Mesh mesh;
    for (const int turns : {1, 2, 4, 9, 20}) {
        const std::vector<Point3> loop = spiral(turns);
        ASSERT_GT(signedArea(loop), 0.0);
        addFace(mesh, {loop});
    }
    expectExactCuts(mesh);
    EXPECT_EQ(countsOf(mesh).tessellated, 0);
}

TEST(ShapeMemo, TranslatedCopiesReuseTheCut) {
    Mesh mesh;
    auto moved = [](std::vector<Point3> loop, double dx, double dy) {
        for (Point3& p : loop)
            p = p + Point3{dx, dy, 0};
        return loop;
    };
    for (int copy = 0; copy < 4; ++copy)
        addFace(mesh,
                {moved(letterE(), 8.0 * copy, 0), moved(reversed(square(0.25, 2, 0.5)), 8.0 * copy, 0)});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.planar + counts.memo, 4);
    EXPECT_GE(counts.memo, 2);
    const auto triangulation = mesh.triangulation();
    const auto first = triangulation->faceTriangles(0);
    const auto last = triangulation->faceTriangles(3);
    ASSERT_EQ(first.size(), last.size());
    const int32_t shift = mesh.faceVertices(3)[0] - mesh.faceVertices(0)[0];
    for (size_t i = 0; i < first.size(); ++i)
        EXPECT_EQ(last[i], (Triangle{first[i][0] + shift, first[i][1] + shift, first[i][2] + shift}));
}

// A bevel that folds does so at the same corner of every copy of a letter: the sweep cuts the
// first crossing face, its copies take the same pattern.
TEST(ShapeMemo, TranslatedCopiesOfACrossingFaceReuseTheSweep) {
    Mesh mesh;
    for (int copy = 0; copy < 3; ++copy) {
        const double x = 4.0 * copy;
        addFace(mesh, {{{x, 0, 0}, {x + 2, 2, 0}, {x + 2, 0, 0}, {x, 2, 0}}});
    }
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.tessellated, 1);
    EXPECT_EQ(counts.memo, 2);
    const auto triangulation = mesh.triangulation();
    const auto first = triangulation->faceTriangles(0);
    ASSERT_FALSE(first.empty());
    for (int32_t f = 1; f < 3; ++f) {
        const auto copy = triangulation->faceTriangles(f);
        ASSERT_EQ(copy.size(), first.size());
        const int32_t shift = mesh.faceVertices(f)[0] - mesh.faceVertices(0)[0];
        for (size_t i = 0; i < first.size(); ++i)
            EXPECT_EQ(copy[i], (Triangle{first[i][0] + shift, first[i][1] + shift, first[i][2] + shift}));
    }
}

// A copy with one point moved by the smallest step a double allows is another shape: its cut is
// worked out again, and it fits.
TEST(ShapeMemo, CopyDifferingInOneBitIsCutAfresh) {
    Mesh mesh;
    std::vector<Point3> skewed = letterE();
    skewed[4].y = std::nextafter(1.0, 2.0); // the inner corner of the lower arm lifts a hair
    addFace(mesh, {letterE()});
    addFace(mesh, {skewed});
    std::vector<Point3> skewedBack = letterE();
    skewedBack[13].x = std::nextafter(3.0, 0.0);
    addFace(mesh, {skewedBack});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.memo, 0);
    EXPECT_EQ(counts.planar, 3);
}

// Faces far from the origin whose dented corner differs by half a unit or lies on the straight
// side: each offset from the first point rounds to the same double, but only the straight one's is
// exact, so all three are different shapes and must not share a cut, whichever comes first.
TEST(ShapeMemo, OffsetsThatRoundAlikeAreNotCopies) {
    const double far = std::ldexp(1.0, 54);
    auto dented = [far](double dent) {
        return std::vector<Point3>{{far, 0, 0}, {far, far, 0}, {0, far, 0}, {dent, far / 2, 0}, {0, 0, 0}};
    };
    ASSERT_EQ(dented(1.0)[3].x - far, dented(0.5)[3].x - far);
    ASSERT_EQ(dented(1.0)[3].x - far, dented(0.0)[3].x - far);
    Mesh mesh;
    addFace(mesh, {dented(1.0)});
    addFace(mesh, {dented(0.5)});
    addFace(mesh, {dented(0.0)});
    expectExactCuts(mesh);
    const TriangulationCounts counts = countsOf(mesh);
    EXPECT_EQ(counts.memo, 0);
    EXPECT_EQ(counts.planar, 3);
}

// One clipper keeps its buffers from face to face: a small face cut after a large one (which
// used the grid) and a large one after that must each come out whole.
TEST(EarClipper, ReusedClipperCutsEachFaceAfresh) {
    auto planar = [](std::initializer_list<std::vector<Point3>> loops) {
        PlanarFace face;
        for (const auto& loop : loops) {
            face.loopStart.push_back(static_cast<int32_t>(face.points.size()));
            for (const Point3& p : loop)
                face.points.push_back({p.x, p.y});
        }
        face.loopStart.push_back(static_cast<int32_t>(face.points.size()));
        describeLoops(face);
        return face;
    };
    const PlanarFace large =
        planar({circle(0, 0, 10, 90), circle(-4, 0, 2, 30, true), circle(4, 0, 2, 30, true)});
    const PlanarFace small = planar({square(0, 0, 4), reversed(square(1, 1, 1))});
    EarClipper clipper;
    for (const PlanarFace* face : {&large, &small, &large, &small}) {
        ASSERT_TRUE(loopsWellFormed(*face));
        std::vector<Triangle> triangles;
        ASSERT_TRUE(clipper.triangulate(*face, triangles));
        const int32_t holes = face->loopCount() - 1;
        EXPECT_EQ(static_cast<int32_t>(triangles.size()),
                  static_cast<int32_t>(face->points.size()) + 2 * holes - 2);
        double area = 0.0;
        for (const auto& [a, b, c] : triangles) {
            const int turn = orientation(face->points[a], face->points[b], face->points[c]);
            EXPECT_EQ(turn, 1);
            area += twiceSignedArea(std::vector<Point2>{face->points[a], face->points[b], face->points[c]});
        }
        double expected = twiceSignedArea(face->loop(0));
        for (int32_t l = 1; l < face->loopCount(); ++l)
            expected -= std::abs(twiceSignedArea(face->loop(l)));
        EXPECT_NEAR(area, expected, 1e-9 * expected);
    }
}

// Random star-shaped outlines with random holes, many points on lines and near one another: the
// fast cut covers what the GLU sweep covers, exactly.
TEST(PlanarTriangulation, RandomHoledStarsMatchTheSweep) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    Mesh mesh;
    for (int face = 0; face < 300; ++face) {
        const int n = 5 + static_cast<int>(unit(random) * 60);
        std::vector<Point3> outer;
        for (int i = 0; i < n; ++i) {
            const double a = 2.0 * std::numbers::pi * i / n;
            const double r = i % 5 == 0 ? 10.0 : 6.0 + 4.0 * unit(random);
            // Snap to a coarse grid so that collinear and near-collinear runs are common.
            outer.push_back({std::round(r * std::cos(a) * 4) / 4, std::round(r * std::sin(a) * 4) / 4, 0});
        }
        std::vector<std::vector<Point3>> loops{outer};
        const int holes = static_cast<int>(unit(random) * 4);
        for (int h = 0; h < holes; ++h)
            loops.push_back(circle(-3 + 2.0 * h, 0.2 * h, 0.9, 3 + h * 2, h % 2 == 0));
        std::vector<int32_t> counts;
        std::vector<Point3> all;
        for (const auto& loop : loops) {
            counts.push_back(static_cast<int32_t>(loop.size()));
            all.insert(all.end(), loop.begin(), loop.end());
        }
        int32_t added = -1;
        ASSERT_EQ(mesh.addPolygon(all, counts, false, 0.0, added), Status::Success);
    }
    const Triangulation cut = triangulateFaces(mesh.faces(), mesh.points());
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        std::vector<Triangle> pattern;
        GluTessellator().tessellate(mesh.faces(), mesh.points(), f, *mesh.faceNormal(f), pattern);
        std::vector<Triangle> swept(pattern.size());
        writePattern(mesh.faces().faceVertices(f), pattern, swept.data());
        EXPECT_NEAR(triangleArea(cut.faceTriangles(f), mesh.points()), triangleArea(swept, mesh.points()),
                    1e-9)
            << "face " << f;
    }
    expectExactCuts(mesh);
    EXPECT_EQ(cut.counts.tessellated, 0);
}

} // namespace
} // namespace oz::mesh
