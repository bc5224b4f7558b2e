#include "../geometry/Fixtures.h"
#include "SolidKernel.h"
#include "extrude/FaceOptions.h"
#include "extrude/ProfileRings.h"
#include "extrude/SolidAssembly.h"
#include "offset/Mitres.h"
#include "offset/NormalsOffset.h"

#include <gtest/gtest.h>

// The kernel pieces the older extrusion node adds to the shared construction.
namespace type {
namespace {

using testing::rectangle;
using testing::reversed;

ExtrudeSettings settings(InternalBevel style, double distance) {
    ExtrudeSettings s;
    s.extrusion = true;
    s.bevelStyle = style;
    s.backBevel = true;
    s.extrudeDistance = distance;
    s.extrudeDivisions = 4;
    s.extrudeOffset = 0.1;
    s.bevelDistance = 0.3;
    s.bevelOffset = 0.2;
    s.bevelDivisions = 3;
    s.backBevelDistance = 0.4;
    s.backBevelOffset = 0.25;
    s.backBevelDivisions = 2;
    return s;
}

ProfileSamples samples(const ExtrudeSettings& s) {
    ProfileSamples out;
    out.extrude.assign(s.extrudeDivisions + 1, 0.5);
    for (int i = 0; i <= s.bevelDivisions; ++i)
        out.front.push_back(1.0 - static_cast<double>(i) / s.bevelDivisions);
    for (int i = 0; i <= s.backBevelDivisions; ++i)
        out.back.push_back(1.0 - static_cast<double>(i) / s.backBevelDivisions);
    return out;
}

// A square of side 4 with a square hole of side 2 at x0, in the plane z = 0.
SolidFace squareWithHole(double x0, int inputFace) {
    SolidFace face{{}, FaceFrame({0, 0, 1}), 0.0, 0, inputFace};
    for (const Contour& loop : {rectangle(x0, 0, x0 + 4, 4), reversed(rectangle(x0 + 1, 1, x0 + 3, 3))}) {
        face.outline.points.insert(face.outline.points.end(), loop.begin(), loop.end());
        face.outline.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

// A face given its own distance moves each ring by the ring's share of the
// change, so the share must be exactly how the ring's depth follows the
// extrusion distance, in every bevel style.
TEST(VectorExtrudeKernels, WallShareIsHowEachRingsDepthFollowsTheExtrusionDistance) {
    for (const InternalBevel style : {InternalBevel::kNone, InternalBevel::kInner, InternalBevel::kOuter}) {
        const Profile near = sampleProfile(settings(style, 2.0), samples(settings(style, 2.0)));
        const Profile far = sampleProfile(settings(style, 3.0), samples(settings(style, 3.0)));
        ASSERT_EQ(near.rings.size(), far.rings.size());
        for (std::size_t k = 0; k < near.rings.size(); ++k) {
            EXPECT_NEAR(far.rings[k].depth - near.rings[k].depth, near.rings[k].wallShare, 1e-12)
                << static_cast<int>(style) << " ring " << k;
            EXPECT_EQ(far.rings[k].offset, near.rings[k].offset);
        }
    }
}

TEST(VectorExtrudeKernels, AFaceOfItsOwnDepthIsStillAClosedSolidOfThatDepth) {
    ExtrudeSettings s = settings(InternalBevel::kNone, 2.0);
    s.extrudeOffset = 0.0;
    const Profile profile = sampleProfile(s, samples(s));
    std::vector<SolidFace> faces = {squareWithHole(0, 0), squareWithHole(10, 1)};
    faces[1].extraDepth = 1.5;
    const SolidTopology topology = solidTopology(faces, profile, false);
    const std::vector<Point3> points = typetest::pointsOf(faces, profile);
    const typetest::SolidReport report = typetest::checkSolid(typetest::soupOf(topology, points));
    EXPECT_TRUE(report.watertight()) << report.firstProblem;
    EXPECT_NEAR(report.volume, 12.0 * 2.0 + 12.0 * 3.5, 1e-9);
}

// A face left unextruded is one face over its own points, turned as it came
// (its normal still +z), holes and all, and the next face's stack follows it.
TEST(VectorExtrudeKernels, AnUnextrudedFaceIsTheInputFaceAlone) {
    const ExtrudeSettings s = settings(InternalBevel::kInner, 2.0);
    const Profile profile = sampleProfile(s, samples(s));
    std::vector<SolidFace> faces = {squareWithHole(0, 0), squareWithHole(10, 1)};
    faces[0].extruded = false;
    for (const bool deleteCaps : {false, true}) {
        const SolidTopology topology = solidTopology(faces, profile, deleteCaps);
        EXPECT_EQ(topology.faceVertexStarts,
                  (std::vector<int>{0, 8, 8 + 8 * static_cast<int>(profile.rings.size())}));
        EXPECT_EQ(topology.faceCounts.front(), 4);
        EXPECT_EQ(std::vector<int>(topology.faceConnects.begin(), topology.faceConnects.begin() + 4),
                  (std::vector<int>{0, 1, 2, 3}));
        ASSERT_FALSE(topology.capHoles.empty());
        EXPECT_EQ(topology.capHoles.front().face, 0);
        EXPECT_EQ(topology.capFaces.front(), 0);
        EXPECT_EQ(topology.capFaces.size(), deleteCaps ? 1u : 3u);
        const std::vector<Point3> points = typetest::pointsOf(faces, profile);
        ASSERT_EQ(points.size(), static_cast<std::size_t>(topology.vertexCount));
        for (int v = 0; v < 8; ++v) {
            EXPECT_NEAR(points[v].z, 0.0, 1e-12) << v;
            EXPECT_NEAR(points[v].x, faces[0].outline.points[v].x, 1e-12) << v;
        }
    }
}

TEST(VectorExtrudeKernels, FacesTakeTheirCharactersElementWhenKeptTogether) {
    std::vector<SolidFace> faces;
    for (int f = 0; f < 6; ++f)
        faces.push_back(squareWithHole(10.0 * f, f));
    FaceOptions options;
    options.solidsPerCharacter = {1, 3, 0};
    // The third character (a space) has no face; faces past the counts go on from there.
    EXPECT_EQ(faceElements(faces, options), (std::vector<std::size_t>{0, 1, 1, 1, 3, 4}));
    options.keepFacesTogether = false;
    EXPECT_EQ(faceElements(faces, options), (std::vector<std::size_t>{0, 1, 2, 3, 4, 5}));
    options.keepFacesTogether = true;
    options.solidsPerCharacter = {};
    EXPECT_EQ(faceElements(faces, options), (std::vector<std::size_t>{0, 1, 2, 3, 4, 5}));
}

TEST(VectorExtrudeKernels, OnlyListedInputFacesAreExtruded) {
    std::vector<SolidFace> faces = {squareWithHole(0, 0), squareWithHole(10, 2), squareWithHole(20, 5)};
    extrudeListedFaces({}, faces);
    EXPECT_TRUE(faces[0].extruded && faces[1].extruded && faces[2].extruded);
    // Listed by input face, which skipped faces make differ from the position.
    extrudeListedFaces({2, 4}, faces);
    EXPECT_FALSE(faces[0].extruded);
    EXPECT_TRUE(faces[1].extruded);
    EXPECT_FALSE(faces[2].extruded);
}

TEST(VectorExtrudeKernels, TheBevelSwitchOverridesOnlyWhenOn) {
    for (const InternalBevel resolved :
         {InternalBevel::kNone, InternalBevel::kInner, InternalBevel::kOuter}) {
        EXPECT_EQ(switchBevel(resolved, 0), resolved);
        EXPECT_EQ(switchBevel(resolved, 1), InternalBevel::kInner);
        EXPECT_EQ(switchBevel(resolved, 2), InternalBevel::kOuter);
    }
}

} // namespace
} // namespace type
