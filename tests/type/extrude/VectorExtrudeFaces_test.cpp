#include "VectorExtrudeTesting.h"

#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <cmath>
#include <limits>

namespace typetest {
namespace {

// What the older node's extra inputs do to each face, on three plain faces.
class VectorExtrudeFaces : public VectorExtrudeTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        runAll(kThreeFaces);
        // No taper, so that a face's depth is its extrusion distance alone.
        ASSERT_TRUE(run("setAttr vectorExtrude1.extrudeOffset 0"));
    }

    static std::vector<double> depths() {
        std::vector<double> out;
        for (int face = 0; face < 3; ++face)
            out.push_back(depth(facePoints("vectorExtrude1", face)));
        return out;
    }

    static void setDoubles(const std::string& attribute, const std::vector<double>& values) {
        ZFnDoubleArrayData fn;
        const ZObject data = fn.create(ZDoubleArray(values));
        ASSERT_TRUE(plugNamed("vectorExtrude1", attribute).setValue(data)) << attribute;
    }

    static void listComponents(ZFn::Type kind, const std::vector<int>& elements) {
        ZFnSingleIndexedComponent componentFn;
        const ZObject component = componentFn.create(kind);
        ASSERT_TRUE(componentFn.addElements(ZIntArray(elements)));
        ZFnComponentListData listFn;
        const ZObject list = listFn.create();
        ASSERT_TRUE(listFn.add(component));
        ASSERT_TRUE(plugNamed("vectorExtrude1", "inputComponents").setValue(list));
    }

    // How far the points of one face moved off the face's own corners, at most.
    static double largestInset(int face) {
        const std::vector<ZPoint> points = facePoints("vectorExtrude1", face);
        const std::vector<ZPoint> corners = {points.begin(), points.begin() + 4};
        double largest = 0.0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const ZPoint& corner = corners[i % 4];
            largest = std::max(largest, std::hypot(points[i].x - corner.x, points[i].y - corner.y));
        }
        return largest;
    }
};

TEST_F(VectorExtrudeFaces, PerElementDistancesRepeatModuloTheirLength) {
    const std::vector<double> plain = depths();
    for (const double d : plain)
        EXPECT_NEAR(d, 2.5, 1e-6);

    ASSERT_TRUE(run("setAttr vectorExtrude1.keepFacesTogether 0"));
    setDoubles("extrudeDistancePP", {1.0, 3.0});
    const std::vector<double> alternating = depths();
    EXPECT_NEAR(alternating[0], 1.0, 1e-6);
    EXPECT_NEAR(alternating[1], 3.0, 1e-6);
    EXPECT_NEAR(alternating[2], 1.0, 1e-6);

    // The scale multiplies the distance, again by element modulo its length.
    setDoubles("extrudeDistanceScalePP", {2.0});
    const std::vector<double> scaled = depths();
    EXPECT_NEAR(scaled[0], 2.0, 1e-6);
    EXPECT_NEAR(scaled[1], 6.0, 1e-6);
    EXPECT_NEAR(scaled[2], 2.0, 1e-6);

    // A scale without distances scales the node's own distance.
    setDoubles("extrudeDistancePP", {});
    setDoubles("extrudeDistanceScalePP", {1.0, 0.5, 2.0});
    const std::vector<double> ownScaled = depths();
    EXPECT_NEAR(ownScaled[0], 2.5, 1e-6);
    EXPECT_NEAR(ownScaled[1], 1.25, 1e-6);
    EXPECT_NEAR(ownScaled[2], 5.0, 1e-6);
}

// Per-element depths move points only: the topology stays the same.
TEST_F(VectorExtrudeFaces, PerElementDistancesKeepTheTopology) {
    const SolidSnapshot before = snapshot("vectorExtrude1");
    setDoubles("extrudeDistancePP", {1.0, 3.0, 0.5});
    const SolidSnapshot after = snapshot("vectorExtrude1");
    EXPECT_EQ(after.faceConnects, before.faceConnects);
    EXPECT_EQ(after.components, before.components);
    EXPECT_NE(after.points, before.points);
}

// The bevels keep their own size on a face of its own depth: only the walls stretch.
TEST_F(VectorExtrudeFaces, AFaceOfItsOwnDepthKeepsItsBevels) {
    ASSERT_TRUE(run("setAttr vectorExtrude1.bevel 1"));
    const double bevelled = depths()[0];
    setDoubles("extrudeDistancePP", {4.5});
    EXPECT_NEAR(depths()[0] - bevelled, 2.0, 1e-6);
}

TEST_F(VectorExtrudeFaces, FacesOfOneCharacterShareTheirElementWhenKeptTogether) {
    setDoubles("solidsPerCharacter", {2.0, 1.0});
    setDoubles("extrudeDistancePP", {1.0, 3.0});
    const std::vector<double> together = depths();
    EXPECT_NEAR(together[0], 1.0, 1e-6);
    EXPECT_NEAR(together[1], 1.0, 1e-6);
    EXPECT_NEAR(together[2], 3.0, 1e-6);

    ASSERT_TRUE(run("setAttr vectorExtrude1.keepFacesTogether 0"));
    const std::vector<double> apart = depths();
    EXPECT_NEAR(apart[1], 3.0, 1e-6);
    EXPECT_NEAR(apart[2], 1.0, 1e-6);

    // Faces past the characters' counts are elements of their own.
    ASSERT_TRUE(run("setAttr vectorExtrude1.keepFacesTogether 1"));
    setDoubles("solidsPerCharacter", {1.0});
    setDoubles("extrudeDistancePP", {1.0, 2.0, 3.0});
    const std::vector<double> beyond = depths();
    EXPECT_NEAR(beyond[0], 1.0, 1e-6);
    EXPECT_NEAR(beyond[1], 2.0, 1e-6);
    EXPECT_NEAR(beyond[2], 3.0, 1e-6);
}

// The faces a filter leaves out pass through flat, as they came in, in the
// cap group; the listed one is built as without a filter.
TEST_F(VectorExtrudeFaces, OnlyTheListedFacesAreExtruded) {
    const SolidSnapshot all = snapshot("vectorExtrude1");
    const std::vector<ZPoint> second = facePoints("vectorExtrude1", 1);
    const std::size_t facesEach = all.faceCounts.size() / 3;
    listComponents(ZFn::kMeshPolygonComponent, {1});
    const SolidSnapshot listed = snapshot("vectorExtrude1");
    ASSERT_EQ(listed.points.size(), 4 + second.size() + 4);
    EXPECT_EQ(std::vector<ZPoint>(listed.points.begin() + 4, listed.points.end() - 4), second);
    for (const std::size_t first : {std::size_t{0}, listed.points.size() - 4})
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(listed.points[first + i].z, 0.0, 1e-12) << first + i;
    ASSERT_EQ(listed.faceCounts.size(), 1 + facesEach + 1);
    // Turned as the input face: its vertices in the input's order.
    EXPECT_EQ(std::vector<int>(listed.faceConnects.begin(), listed.faceConnects.begin() + 4),
              (std::vector<int>{0, 1, 2, 3}));
    const std::vector<int>& caps = listed.components[0];
    EXPECT_EQ(caps.front(), 0);
    EXPECT_EQ(caps.back(), static_cast<int>(listed.faceCounts.size()) - 1);
    EXPECT_EQ(caps.size(), 4u);

    // Without caps the flat faces stay, and every uv they name exists.
    ASSERT_TRUE(run("setAttr vectorExtrude1.deleteCaps 1"));
    const SolidSnapshot capless = snapshot("vectorExtrude1");
    EXPECT_EQ(capless.components[0], (std::vector<int>{0, static_cast<int>(capless.faceCounts.size()) - 1}));
    for (const int uv : capless.uvIds)
        ASSERT_LT(uv, static_cast<int>(capless.u.size()));

    // Components that name no face leave every face extruded.
    ASSERT_TRUE(run("setAttr vectorExtrude1.deleteCaps 0"));
    listComponents(ZFn::kMeshVertComponent, {0, 1, 2, 3});
    EXPECT_TRUE(snapshot("vectorExtrude1") == all);
}

TEST_F(VectorExtrudeFaces, PlanarCapUvsProjectAllCapsIntoOnePlane) {
    const SolidSnapshot atlas = snapshot("vectorExtrude1");
    ASSERT_TRUE(run("setAttr vectorExtrude1.enablePlanarCapUVs 1"));
    const SolidSnapshot planar = snapshot("vectorExtrude1");
    EXPECT_EQ(planar.faceConnects, atlas.faceConnects);
    EXPECT_EQ(planar.points, atlas.points);

    // The caps' uvs are their points scaled by the width of all three faces
    // (x 0..6): the front cap read as it lies, the back one mirrored.
    const std::vector<int>& caps = planar.components[0];
    ASSERT_EQ(caps.size(), 6u);
    std::vector<int> firstUv(planar.uvCounts.size() + 1, 0);
    for (std::size_t f = 0; f < planar.uvCounts.size(); ++f)
        firstUv[f + 1] = firstUv[f] + planar.uvCounts[f];
    std::vector<int> firstVertex(planar.faceCounts.size() + 1, 0);
    for (std::size_t f = 0; f < planar.faceCounts.size(); ++f)
        firstVertex[f + 1] = firstVertex[f] + planar.faceCounts[f];
    for (std::size_t k = 0; k < caps.size(); ++k) {
        const int cap = caps[k];
        const bool back = k % 2 == 1;
        for (int i = 0; i < planar.faceCounts[cap]; ++i) {
            const ZPoint& p = planar.points[planar.faceConnects[firstVertex[cap] + i]];
            const int uv = planar.uvIds[firstUv[cap] + i];
            EXPECT_NEAR(planar.u[uv], back ? (6.0 - p.x) / 6.0 : p.x / 6.0, 1e-6) << cap;
            EXPECT_NEAR(planar.v[uv], p.y / 6.0, 1e-6) << cap;
        }
    }
    // The sides keep the atlas.
    for (const int wall : planar.components[2]) {
        for (int i = 0; i < planar.uvCounts[wall]; ++i) {
            const int uv = planar.uvIds[firstUv[wall] + i];
            const int before = atlas.uvIds[firstUv[wall] + i];
            EXPECT_EQ(planar.u[uv], atlas.u[before]);
            EXPECT_EQ(planar.v[uv], atlas.v[before]);
        }
    }
}

// The narrow face (0.2 wide) cannot take a 0.3 bevel from both sides; with
// adaptivity its insets shrink towards what fits, while the unit squares,
// wide enough, keep theirs.
TEST_F(VectorExtrudeFaces, AdaptivityShrinksTheBevelOfFacesTooNarrowForIt) {
    ASSERT_TRUE(run("setAttr vectorExtrude1.bevel 1"));
    const double wide = largestInset(0);
    const double narrow = largestInset(1);
    ASSERT_GT(narrow, 0.0);
    ASSERT_TRUE(run("setAttr vectorExtrude1.frontBevelAdaptivity 0.5"));
    const double half = largestInset(1);
    ASSERT_TRUE(run("setAttr vectorExtrude1.frontBevelAdaptivity 1"));
    const double full = largestInset(1);
    EXPECT_LT(half, narrow);
    EXPECT_LT(full, half);
    EXPECT_DOUBLE_EQ(largestInset(0), wide);
    EXPECT_DOUBLE_EQ(largestInset(2), wide);
}

} // namespace
} // namespace typetest
