#include "MeshTestShapes.h"
#include "mesh/VertexMerge.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>

namespace oz::mesh {
namespace {

using namespace test;

TEST(VertexMerge, ReusesVerticesWithinToleranceOnly) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 1)});
    // Two corners of the new square lie within 0.05 of existing corners, one lies just outside.
    const std::vector<Point3> next{{1.04, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1.0 + 0.051, 0}};
    int32_t face = -1;
    ASSERT_EQ(mesh.addPolygon(next, std::vector<int32_t>{4}, true, 0.05, face), Status::Success);

    EXPECT_EQ(face, 1);
    EXPECT_EQ(mesh.vertexCount(), 4 + 3);
    const auto loop = mesh.outerLoop(1);
    EXPECT_EQ(loop[0], 1);
    EXPECT_EQ(loop[1], 4);
    EXPECT_EQ(loop[3], 6);
    EXPECT_EQ(mesh.topology()->edgeFaces[mesh.topology()->faceVertexEdges[1][0]].size(), 1u);
}

TEST(VertexMerge, ExactToleranceMergesAndMergeOffNeverDoes) {
    Mesh merged;
    addFace(merged, {square(0, 0, 1)});
    EXPECT_EQ(addFace(merged, {{{-0.25, 0, 0}, {5, 0, 0}, {0, 1.25 + 1e-9, 0}}}, true, 0.25), 1);
    EXPECT_EQ(merged.vertexCount(), 4 + 2);
    EXPECT_EQ(merged.outerLoop(1)[0], 0);

    Mesh separate;
    addFace(separate, {square(0, 0, 1)});
    EXPECT_EQ(addFace(separate, {square(0, 0, 1)}, false, 1.0), 1);
    EXPECT_EQ(separate.vertexCount(), 8);
    EXPECT_EQ(separate.edgeCount(), 8);
}

TEST(VertexMerge, PicksTheClosestCandidate) {
    Mesh mesh;
    addFace(mesh, {{{0, 0, 0}, {0.3, 0, 0}, {0, 1, 0}}});
    int32_t face = -1;
    ASSERT_EQ(mesh.addPolygon(std::vector<Point3>{{0.2, 0, 0}, {5, 0, 0}, {5, 5, 0}}, std::vector<int32_t>{3},
                              true, 0.5, face),
              Status::Success);
    EXPECT_EQ(mesh.outerLoop(face)[0], 1);
}

TEST(VertexMerge, PointsOfOneCallMergeWithEachOther) {
    // Coincident neighbours collapse into one vertex and the loop keeps its distinct corners.
    Mesh mesh;
    const std::vector<Point3> loop{{0, 0, 0}, {1, 0, 0}, {1, 0, 1e-12}, {1, 1, 0}, {0, 1, 0}};
    int32_t face = -1;
    ASSERT_EQ(mesh.addPolygon(loop, std::vector<int32_t>{5}, true, 1e-10, face), Status::Success);
    EXPECT_EQ(mesh.vertexCount(), 4);
    EXPECT_EQ(mesh.outerLoop(face).size(), 4u);
}

TEST(VertexMerge, LoopCollapsingBelowThreeVerticesFailsAndChangesNothing) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 1)});
    const uint64_t version = mesh.topologyVersion();
    int32_t face = -1;
    const std::vector<Point3> sliver{{0, 0, 0}, {0.001, 0, 0}, {1, 0, 0}};
    EXPECT_EQ(mesh.addPolygon(sliver, std::vector<int32_t>{3}, true, 0.01, face), Status::DegenerateLoop);
    EXPECT_EQ(mesh.addHoles(0, sliver, std::vector<int32_t>{3}, true, 0.01), Status::DegenerateLoop);
    EXPECT_EQ(mesh.vertexCount(), 4);
    EXPECT_EQ(mesh.faceCount(), 1);
    EXPECT_EQ(mesh.topologyVersion(), version);
}

TEST(VertexMerge, IndexFollowsMovedPoints) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 1)});
    addFace(mesh, {square(5, 0, 1)}, true, 1e-6);
    ASSERT_EQ(mesh.setPoint(0, {5, 5, 5}), Status::Success);
    int32_t face = -1;
    ASSERT_EQ(mesh.addPolygon(std::vector<Point3>{{5, 5, 5}, {0, 0, 0}, {9, 9, 9}}, std::vector<int32_t>{3},
                              true, 1e-6, face),
              Status::Success);
    EXPECT_EQ(mesh.outerLoop(face)[0], 0);
    EXPECT_EQ(mesh.outerLoop(face)[1], 8);
}

int32_t closestWithin(std::span<const Point3> points, Point3 q, double tolerance) {
    int32_t closest = -1;
    double best = tolerance * tolerance;
    for (int32_t id = 0; id < static_cast<int32_t>(points.size()); ++id) {
        const double d = dot(points[id] - q, points[id] - q);
        if (d < best || (d == best && closest < 0)) {
            best = d;
            closest = id;
        }
    }
    return closest;
}

TEST(VertexMerge, IndexAgreesWithBruteForce) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    std::vector<Point3> points(1000);
    for (Point3& p : points)
        p = {coordinate(random), coordinate(random), coordinate(random)};
    const double tolerance = 0.05;
    VertexMergeIndex index(tolerance);
    index.extend(points);

    for (int i = 0; i < 500; ++i) {
        const Point3 q{coordinate(random), coordinate(random), coordinate(random)};
        EXPECT_EQ(index.find(q, points), closestWithin(points, q, tolerance));
    }
}

// Queries a tolerance or a hair less away from an indexed point, along an axis or a diagonal,
// land near cell sides wherever the cells fall: a neighbour cell skipped wrongly shows up here.
TEST(VertexMerge, IndexFindsPointsAcrossCellSides) {
    std::mt19937 random(11);
    for (const double tolerance : {0.05, 1e-3, 1e-10}) {
        std::uniform_real_distribution<double> coordinate(-3.0, 3.0);
        std::vector<Point3> points(400);
        for (Point3& p : points)
            p = {coordinate(random), coordinate(random), coordinate(random)};
        VertexMergeIndex index(tolerance);
        index.extend(points);
        std::uniform_int_distribution<size_t> pick(0, points.size() - 1);
        std::uniform_int_distribution<int> sign(0, 1);
        for (int i = 0; i < 2000; ++i) {
            const Point3 p = points[pick(random)];
            const double step = (i % 2 == 0 ? tolerance : tolerance * 0.999) * (sign(random) ? 1.0 : -1.0);
            const double diagonal = step / std::sqrt(3.0);
            const Point3 q = i % 3 == 0   ? Point3{p.x + step, p.y, p.z}
                             : i % 3 == 1 ? Point3{p.x, p.y, p.z + step}
                                          : Point3{p.x + diagonal, p.y - diagonal, p.z + diagonal};
            EXPECT_EQ(index.find(q, points), closestWithin(points, q, tolerance)) << tolerance << " " << i;
        }
    }
}

// A whole mesh indexed at once is sorted into tiles, points added later are hashed: lookups must
// agree with a scan over every point wherever a query falls (inside a tile, on a tile side,
// outside the box of the points), on flat and solid layouts, with coincident points split
// between the two structures (the lowest id wins a tie) and with points that are not finite.
TEST(VertexMerge, TiledIndexAgreesWithBruteForce) {
    std::mt19937 random(19);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double tolerance : {0.0, 1e-10, 1e-3, 0.2}) {
        for (const bool flat : {true, false}) {
            std::uniform_real_distribution<double> coordinate(-40.0, 90.0);
            std::vector<Point3> points(6000);
            for (size_t i = 0; i < points.size(); ++i) {
                // Outlines on a coarse lattice, so that many points share tiles and some coincide.
                points[i] = {std::round(coordinate(random) * 4.0) / 4.0, coordinate(random) * 0.1,
                             flat ? 0.0 : (i % 3 == 0 ? -0.25 : 0.25)};
                if (i % 7 == 0 && i > 0)
                    points[i] = points[i / 3];
            }
            points[17] = {nan, 0.0, 0.0};
            VertexMergeIndex index(tolerance);
            index.extend(points);
            // Later points, some coinciding with tiled ones, are hashed.
            for (size_t i = 0; i < 300; ++i)
                points.push_back(i % 2 ? points[i * 5] : Point3{coordinate(random), 0.5, 0.0});
            index.extend(points);

            std::uniform_int_distribution<size_t> pick(0, points.size() - 1);
            for (int i = 0; i < 3000; ++i) {
                Point3 q = points[pick(random)];
                if (!isFinite(q))
                    continue;
                const double step = tolerance * (i % 3 == 0 ? 0.999 : (i % 3 == 1 ? 1.0 : 0.5));
                q = i % 4 == 0 ? Point3{q.x + step, q.y, q.z}
                               : (i % 4 == 1 ? Point3{q.x, q.y - step, q.z} : q);
                if (i % 50 == 0)
                    q = {coordinate(random) * 3.0, -7.0, 1.0}; // outside the box of the points
                ASSERT_EQ(index.find(q, points), closestWithin(points, q, tolerance))
                    << tolerance << " " << flat << " " << i;
            }
            EXPECT_EQ(index.find({nan, 0.0, 0.0}, points), -1);
        }
    }
}

// A solid stacks rings of nearly the same outline at many depths, so one tile holds points of
// every ring, some a hair apart in depth, some at one depth a hair apart across it. Lookups on,
// near and between the rings must agree with a scan, flat and tilted (so that depth is no longer
// one axis), near the origin and far from it.
TEST(VertexMerge, TiledIndexAgreesWithBruteForceOnStackedRings) {
    std::mt19937 random(23);
    const double tolerance = 1e-6;
    for (const double offset : {0.0, 3.0e5}) {
        for (const bool tilted : {false, true}) {
            std::vector<Point3> points;
            for (int ring = 0; ring < 40; ++ring) {
                // Depths come in pairs closer than the tolerance.
                const double depth = 0.01 * (ring / 2) + (ring % 2) * 0.6 * tolerance;
                for (int j = 0; j < 150; ++j) {
                    const double a = 2.0 * std::numbers::pi * j / 150.0;
                    const double r = 0.3 + 0.001 * (ring % 5) + (j % 3 == 0 ? 0.5 * tolerance : 0.0);
                    const Point3 p{r * std::cos(a), r * std::sin(a), depth};
                    const Point3 t = tilted ? Point3{p.x + 0.3 * p.z, p.y, p.z - 0.3 * p.x} : p;
                    points.push_back({t.x + offset, t.y + offset, t.z + offset});
                }
            }
            VertexMergeIndex index(tolerance);
            index.extend(points);
            std::uniform_int_distribution<size_t> pick(0, points.size() - 1);
            std::uniform_real_distribution<double> nudge(-1.5 * tolerance, 1.5 * tolerance);
            for (int i = 0; i < 4000; ++i) {
                Point3 q = points[pick(random)];
                if (i % 2 == 1)
                    q = {q.x + nudge(random), q.y + nudge(random), q.z + nudge(random)};
                ASSERT_EQ(index.find(q, points), closestWithin(points, q, tolerance))
                    << offset << " " << tilted << " " << i;
            }
        }
    }
}

// A few points far from the rest, or every other point, stretch the tiles' box: those points
// must be found as surely as the rest, and queries beyond every indexed point find nothing.
TEST(VertexMerge, TiledIndexFindsOutlyingPoints) {
    std::mt19937 random(29);
    const double tolerance = 1e-3;
    for (const int strayEvery : {500, 2}) {
        std::vector<Point3> points;
        for (int i = 0; i < 8000; ++i) {
            const double a = 0.01 * i;
            points.push_back({std::cos(a) * (1.0 + 0.0001 * i), std::sin(a), 0.001 * (i % 7)});
            if (i % strayEvery == 1)
                points.back() = {(i % 4 == 1 ? 40.0 : -25.0) + 0.01 * i, -9.0 - 0.001 * i, 3.0};
        }
        VertexMergeIndex index(tolerance);
        index.extend(points);
        std::uniform_int_distribution<size_t> pick(0, points.size() - 1);
        std::uniform_real_distribution<double> nudge(-1.2 * tolerance, 1.2 * tolerance);
        for (int i = 0; i < 3000; ++i) {
            Point3 q = points[i % 3 == 0 ? static_cast<size_t>(strayEvery * (i % 16) + 1) : pick(random)];
            q = {q.x + nudge(random), q.y + nudge(random), q.z};
            if (i % 100 == 0)
                q = {100.0, 100.0, -100.0};
            ASSERT_EQ(index.find(q, points), closestWithin(points, q, tolerance)) << strayEvery << " " << i;
        }
    }
}

// Points spread over the whole double range must neither stall the tiling nor be lost to it.
TEST(VertexMerge, TiledIndexCopesWithExtremeCoordinates) {
    const double big = std::numeric_limits<double>::max();
    std::vector<Point3> points;
    for (int i = 0; i < 5000; ++i)
        points.push_back({i % 2 ? big / (i + 1) : -big / (i + 1), static_cast<double>(i), 0.0});
    VertexMergeIndex index(1e-10);
    index.extend(points);
    for (const int id : {0, 1, 2500, 4999})
        EXPECT_EQ(index.find(points[static_cast<size_t>(id)], points), id);
}

TEST(VertexMerge, RejectsBadArguments) {
    Mesh mesh;
    int32_t face = -1;
    const auto points = square(0, 0, 1);
    EXPECT_EQ(mesh.addPolygon(points, std::vector<int32_t>{4}, true, -1.0, face), Status::InvalidArgument);
    EXPECT_EQ(mesh.addPolygon(points, std::vector<int32_t>{5}, false, 0.0, face), Status::SizeMismatch);
    EXPECT_EQ(mesh.addPolygon(points, std::vector<int32_t>{2, 2}, false, 0.0, face), Status::InvalidArgument);
    EXPECT_EQ(mesh.addPolygon(points, std::vector<int32_t>{}, false, 0.0, face), Status::InvalidArgument);
    EXPECT_EQ(mesh.addHoles(0, points, std::vector<int32_t>{4}, false, 0.0), Status::InvalidIndex);
    EXPECT_EQ(mesh.faceCount(), 0);
}

} // namespace
} // namespace oz::mesh
