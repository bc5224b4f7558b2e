#include "../geometry/Fixtures.h"
#include "SolidKernel.h"
#include "extrude/FaceShapes.h"
#include "extrude/SolidAssembly.h"
#include "offset/Mitres.h"
#include "offset/NormalsOffset.h"

#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::rectangle;
using testing::reversed;

// A square of side 4 with a square hole of side 2, in the plane z = 1 facing
// `normal`; the loops wind as given.
SolidFace squareWithHole(bool outerCounterClockwise, bool holeClockwise, const Point3& normal = {0, 0, 1}) {
    SolidFace face{{}, FaceFrame(normal), 1.0, 0, {}};
    const Contour outer = rectangle(0, 0, 4, 4);
    const Contour hole = reversed(rectangle(1, 1, 3, 3));
    for (const Contour& loop :
         {outerCounterClockwise ? outer : reversed(outer), holeClockwise ? hole : reversed(hole)}) {
        face.outline.points.insert(face.outline.points.end(), loop.begin(), loop.end());
        face.outline.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

Profile walls(int rings, double depth) {
    Profile p;
    for (int i = 0; i < rings; ++i)
        p.rings.push_back({0.0f, depth * i / (rings - 1)});
    p.wallsEnd = rings;
    return p;
}

TEST(SolidAssembly, SquareWithHoleIsAClosedOutwardSolidWhicheverWayItsLoopsWind) {
    for (const bool outerCcw : {true, false}) {
        for (const bool holeCw : {true, false}) {
            const std::vector<SolidFace> faces = {squareWithHole(outerCcw, holeCw)};
            const Profile profile = walls(3, 2.0);
            const SolidTopology topology = solidTopology(faces, profile, false);
            const typetest::SolidReport report =
                typetest::checkSolid(typetest::soupOf(topology, typetest::pointsOf(faces, profile)));
            EXPECT_TRUE(report.watertight()) << outerCcw << holeCw << report.firstProblem;
            EXPECT_NEAR(report.volume, 12.0 * 2.0, 1e-9) << outerCcw << holeCw;
        }
    }
}

TEST(SolidAssembly, FacesTurnedAnyWayStillGiveOutwardSolids) {
    for (const Point3& normal : {Point3{0, 0, -1}, Point3{0, 1, 0}, Point3{0, -1, 0}, Point3{1, 2, 3}}) {
        const std::vector<SolidFace> faces = {squareWithHole(true, true, normal)};
        const Profile profile = walls(2, 0.5);
        const SolidTopology topology = solidTopology(faces, profile, false);
        const typetest::SolidReport report =
            typetest::checkSolid(typetest::soupOf(topology, typetest::pointsOf(faces, profile)));
        EXPECT_TRUE(report.watertight()) << report.firstProblem;
        EXPECT_NEAR(report.volume, 12.0 * 0.5, 1e-9);
    }
}

// Copies of a letter are one shape: their rings are built once, and every copy lies exactly where
// the first lies, moved, so that what holds for one copy's points (the cut of its caps) holds for
// all. A copy turned another way, or with one point moved, is a shape of its own.
TEST(FaceShapes, CopiesOfALetterGetExactlyTranslatedRings) {
    // The text-layout path puts letters on a grid of 2^-32 of the font size.
    auto onGrid = [](double v) {
        return std::ldexp(std::round(std::ldexp(v, 32)), -32);
    };
    std::vector<SolidFace> faces;
    for (const Point3 anchor : {Point3{0.1, 0.2, 0}, Point3{7.3, -0.6, 0}, Point3{1234.5, 2.25, 0}}) {
        faces.push_back(squareWithHole(true, true));
        faces.back().outline.points[2].y += 1.0 / 3.0;
        faces.back().anchor = {onGrid(anchor.x), onGrid(anchor.y), 0.0};
    }
    faces.push_back(squareWithHole(true, true, {0, 1, 0}));
    faces.push_back(squareWithHole(true, true));
    faces.back().outline.points[5].x = std::nextafter(faces.back().outline.points[5].x, 9.0);
    const FaceShapes shapes = faceShapes(faces);
    EXPECT_EQ(shapes.shapeOf, (std::vector<int>{0, 0, 0, 1, 2}));

    const std::vector<Point3> points = typetest::pointsOf(faces, walls(3, 0.25));
    const std::size_t perFace = points.size() / faces.size();
    int placedExactly = 0;
    for (std::size_t copy = 1; copy < 3; ++copy) {
        for (std::size_t i = 1; i < perFace; ++i) {
            const Point3& a0 = points[0];
            const Point3& a = points[i];
            const Point3& b0 = points[copy * perFace];
            const Point3& b = points[copy * perFace + i];
            placedExactly += a.x - a0.x == b.x - b0.x && a.y - a0.y == b.y - b0.y && a.z - a0.z == b.z - b0.z;
            EXPECT_NEAR(b.x - b0.x, a.x - a0.x, 1e-9);
        }
    }
    EXPECT_EQ(placedExactly, static_cast<int>(2 * (perFace - 1)));
}

TEST(SolidAssembly, RingsGrowAlongTheFaceNormalFromTheFacesPlane) {
    const std::vector<SolidFace> faces = {squareWithHole(true, true)};
    const std::vector<Point3> points = typetest::pointsOf(faces, walls(2, 0.5));
    EXPECT_NEAR(points.front().z, 1.0, 1e-12);
    EXPECT_NEAR(points.back().z, 1.5, 1e-12);
    EXPECT_NEAR(points.front().x, 0.0, 1e-12);
    EXPECT_NEAR(points.front().y, 0.0, 1e-12);
}

TEST(SolidAssembly, DeleteCapsLeavesNoCapFacesAndNoHolesToInsert) {
    const std::vector<SolidFace> faces = {squareWithHole(true, true)};
    const Profile profile = walls(3, 1.0);
    const SolidTopology topology = solidTopology(faces, profile, true);
    EXPECT_TRUE(topology.capFaces.empty());
    EXPECT_TRUE(topology.capHoles.empty());
    EXPECT_EQ(topology.faceCounts.size(), 2u * 8u);
    // Only the two open ends are left: both loops, front and back.
    EXPECT_EQ(typetest::checkSolid(typetest::soupOf(topology, typetest::pointsOf(faces, profile))).openEdges,
              16);
}

TEST(SolidAssembly, JoinsBetweenWallRingsAreWallsAndTheRestBevels) {
    Profile profile;
    profile.rings = {{0.1f, 0.0}, {0.0f, 0.1}, {0.0f, 1.0}, {0.1f, 1.1}};
    profile.outerFrontEnd = 1;
    profile.leadInEnd = 1;
    profile.wallsEnd = 3;
    profile.innerFrontEnd = 3;
    const std::vector<SolidFace> faces = {squareWithHole(true, true)};
    const SolidTopology topology = solidTopology(faces, profile, false);
    EXPECT_EQ(topology.extrusionFaces.size(), 8u);
    EXPECT_EQ(topology.bevelFaces.size(), 16u);
    EXPECT_EQ(topology.capFaces.size(), 2u);
    const typetest::SolidReport report =
        typetest::checkSolid(typetest::soupOf(topology, typetest::pointsOf(faces, profile)));
    EXPECT_TRUE(report.watertight()) << report.firstProblem;
}

// A face without rings (extrusion off) still closes: two caps back to back.
TEST(SolidAssembly, WithoutRingsTheFaceItselfIsTheOnlyRing) {
    const std::vector<SolidFace> faces = {squareWithHole(true, true)};
    const SolidTopology topology = solidTopology(faces, Profile{}, false);
    EXPECT_EQ(topology.vertexCount, 8);
    EXPECT_EQ(topology.capFaces.size(), 2u);
    EXPECT_TRUE(topology.extrusionFaces.empty());
}

TEST(SolidAssembly, CharacterEndsCountTheSolidVerticesOfEachCharactersFaces) {
    std::vector<SolidFace> faces = {squareWithHole(true, true), squareWithHole(true, true),
                                    squareWithHole(true, true)};
    faces[0].firstInputVertex = 0;
    faces[1].firstInputVertex = 8;
    faces[2].firstInputVertex = 20;
    const SolidTopology topology = solidTopology(faces, walls(3, 1.0), false);
    // Character 1 has no face of its own (a space).
    EXPECT_EQ(solidCharacterEnds(faces, topology, {8, 8, 16, 28}), (std::vector<int>{24, 24, 48, 72}));
}

// An offset builder that returns the wrong number of points (an empty
// distance field) cannot make a face write past its own vertices.
TEST(SolidAssembly, ARingOfTheWrongSizeKeepsTheOutline) {
    std::vector<SolidFace> faces = {squareWithHole(true, true), squareWithHole(true, true)};
    faces[1].outline.points[0].x += 0.5;
    const std::vector<Point3> points = typetest::placedPoints(
        faces, faceShapes(faces), walls(2, 1.0), [](std::size_t shape, double, std::vector<Point2>& out) {
            out.assign(shape == 0 ? 20 : 0, Point2{9, 9});
        });
    ASSERT_EQ(points.size(), 32u);
    EXPECT_NEAR(points[9].x, faces[0].outline.points[1].x, 1e-12);
    EXPECT_NEAR(points[9].z, 2.0, 1e-12);
    EXPECT_NEAR(points[16].x, faces[1].outline.points[0].x, 1e-12);
}

TEST(FaceFrame, PlaneKeepsTheTurnOfLoopsSeenFromTheNormalAndComesBack) {
    for (const Point3& normal : {Point3{0, 0, 1}, Point3{0, 0, -1}, Point3{0, -1, 0}, Point3{-1, 2, 0.5}}) {
        const FaceFrame frame(normal);
        const double length = std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
        const Point3 n{normal.x / length, normal.y / length, normal.z / length};
        // Two directions in the plane with u x v = n.
        const Point3 u = std::abs(n.x) < 0.9 ? Point3{0, n.z, -n.y} : Point3{-n.z, 0, n.x};
        const double ul = std::sqrt(u.x * u.x + u.y * u.y + u.z * u.z);
        const Point3 a{u.x / ul, u.y / ul, u.z / ul};
        const Point3 b{n.y * a.z - n.z * a.y, n.z * a.x - n.x * a.z, n.x * a.y - n.y * a.x};
        const Point2 pa = frame.toPlane(a);
        const Point2 pb = frame.toPlane(b);
        EXPECT_NEAR(pa.x * pb.y - pa.y * pb.x, 1.0, 1e-12);
        EXPECT_NEAR(frame.height(n), 1.0, 1e-12);
        const Point3 back =
            frame.fromPlane(frame.toPlane(Point3{0.3, -0.2, 0.7}), frame.height({0.3, -0.2, 0.7}));
        EXPECT_NEAR(back.x, 0.3, 1e-12);
        EXPECT_NEAR(back.y, -0.2, 1e-12);
        EXPECT_NEAR(back.z, 0.7, 1e-12);
    }
}

} // namespace
} // namespace type
