#include "ExtrudeNodeTesting.h"
#include "SolidCheck.h"
#include "TriangleCrossing.h"

#include <OpenZyvo/ZFnIntArrayData.h>
#include <cmath>
#include <cstdio>
#include <numeric>

// Every printable ASCII glyph of the fonts text is mostly set in, extruded
// alone and with front and back bevels, is a closed solid facing outwards.
// The sizes are those the benchmarks use (at fontSize 1 an em is a little
// under one unit): 4 segments per curve, depth 0.25, bevels 0.02 wide and
// deep in 3 divisions.
namespace typetest {
namespace {

struct FontCase {
    const char* family;
    const char* style;
};

constexpr FontCase kFonts[] = {
    {"DejaVu Sans", "Book"},         {"DejaVu Sans", "Bold"},      {"DejaVu Sans", "Oblique"},
    {"DejaVu Serif", "Book"},        {"DejaVu Serif", "Bold"},     {"DejaVu Serif", "Italic"},
    {"Liberation Sans", "Regular"},  {"Liberation Sans", "Bold"},  {"Liberation Sans", "Italic"},
    {"Liberation Serif", "Regular"}, {"Liberation Serif", "Bold"}, {"Liberation Serif", "Italic"},
};

constexpr double kDepth = 0.25;

// The glyphs with a blank between any two, so that no two characters touch.
std::string printableAscii() {
    std::string hex;
    char byte[4];
    for (int c = 33; c < 127; ++c) {
        std::snprintf(byte, sizeof byte, "%02x", c);
        hex += std::string(hex.empty() ? "" : " 20 ") + byte;
    }
    return hex;
}

PolygonSoup soupOf(const ZFnMesh& mesh) {
    PolygonSoup soup;
    ZPointArray points;
    EXPECT_TRUE(mesh.getPoints(points));
    for (const ZPoint& p : points)
        soup.points.push_back({p.x, p.y, p.z});
    ZIntArray holeInfo;
    ZIntArray holeVertices;
    mesh.getHoles(holeInfo, holeVertices);
    std::vector<std::vector<int>> holeSizes(mesh.numPolygons());
    for (unsigned int h = 0; h + 2 < holeInfo.length(); h += 3)
        holeSizes[holeInfo[h]].push_back(holeInfo[h + 1]);
    ZIntArray vertices;
    for (int f = 0; f < mesh.numPolygons(); ++f) {
        EXPECT_TRUE(mesh.getPolygonVertices(f, vertices));
        const int holes = std::accumulate(holeSizes[f].begin(), holeSizes[f].end(), 0);
        Loops loops;
        std::vector<int> sizes = {static_cast<int>(vertices.length()) - holes};
        sizes.insert(sizes.end(), holeSizes[f].begin(), holeSizes[f].end());
        int start = 0;
        for (const int size : sizes) {
            loops.emplace_back(vertices.begin() + start, vertices.begin() + start + size);
            start += size;
        }
        soup.faces.push_back(std::move(loops));
    }
    return soup;
}

// The volume of each connected piece of a soup.
std::vector<double> pieceVolumes(const PolygonSoup& soup) {
    std::vector<int> parent(soup.points.size());
    std::iota(parent.begin(), parent.end(), 0);
    auto root = [&](int v) {
        while (parent[v] != v)
            v = parent[v] = parent[parent[v]];
        return v;
    };
    for (const Loops& face : soup.faces)
        for (const std::vector<int>& loop : face)
            for (const int v : loop)
                parent[root(v)] = root(face[0][0]);
    std::map<int, double> volumes;
    for (const Loops& face : soup.faces)
        volumes[root(face[0][0])] += faceVolume(soup, face);
    std::vector<double> out;
    for (const auto& [r, volume] : volumes)
        out.push_back(volume);
    return out;
}

double area(const PolygonSoup& soup, const std::vector<int>& faces) {
    double total = 0.0;
    for (const int f : faces) {
        double n[3] = {0, 0, 0};
        for (const std::vector<int>& loop : soup.faces[f]) {
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const Vertex& a = soup.points[loop[i]];
                const Vertex& b = soup.points[loop[(i + 1) % loop.size()]];
                n[0] += a[1] * b[2] - a[2] * b[1];
                n[1] += a[2] * b[0] - a[0] * b[2];
                n[2] += a[0] * b[1] - a[1] * b[0];
            }
        }
        total += std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]) / 2;
    }
    return total;
}

class WatertightSolids : public ExtrudeNodeTest, public ::testing::WithParamInterface<FontCase> {
protected:
    void SetUp() override {
        ExtrudeNodeTest::SetUp();
        ASSERT_TRUE(
            run(std::string("setAttr -type \"string\" type1.currentFont \"") + GetParam().family + "\""));
        ASSERT_TRUE(
            run(std::string("setAttr -type \"string\" type1.currentStyle \"") + GetParam().style + "\""));
        ASSERT_TRUE(run("setAttr type1.curveResolution 4"));
        ASSERT_TRUE(run("setAttr type1.fontSize 1"));
        ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"" + printableAscii() + "\""));
        ASSERT_TRUE(run("setAttr typeExtrude1.extrudeDistance " + std::to_string(kDepth)));
    }

    void expectSolids(bool beveled) {
        const PolygonSoup soup = soupOf(ZFnMesh(meshData()));
        ASSERT_FALSE(soup.faces.empty());
        const std::vector<int> caps = components("capComponents");
        const std::vector<double> volumes = pieceVolumes(soup);
        EXPECT_GE(volumes.size(), 94u);
        const SolidReport whole = checkSolid(soup);
        EXPECT_TRUE(whole.watertight())
            << whole.openEdges << " open, " << whole.overusedEdges << " overused, " << whole.firstProblem;
        for (std::size_t i = 0; i < volumes.size(); ++i)
            EXPECT_GT(volumes[i], 0.0) << "piece " << i;
        if (!beveled) {
            // Front and back caps together: twice the face area.
            EXPECT_NEAR(whole.volume, area(soup, caps) / 2 * kDepth, 1e-3 * whole.volume);
        }
    }
};

TEST_P(WatertightSolids, ExtrudedGlyphsAreClosedOutwardSolidsOfCapAreaTimesDepth) {
    expectSolids(false);
}

TEST_P(WatertightSolids, BeveledGlyphsAreClosedOutwardSolids) {
    for (const char* setting :
         {"setAttr typeExtrude1.bevelStyle 2", "setAttr typeExtrude1.enableFrontBevel 1",
          "setAttr typeExtrude1.enableBackBevel 1", "setAttr typeExtrude1.bevelDistance 0.02",
          "setAttr typeExtrude1.bevelOffset 0.02", "setAttr typeExtrude1.bevelDivisions 3",
          "setAttr typeExtrude1.backBevelDistance 0.02", "setAttr typeExtrude1.backBevelOffset 0.02",
          "setAttr typeExtrude1.backBevelDivisions 3"})
        ASSERT_TRUE(run(setting)) << setting;
    expectSolids(true);
}

TEST_P(WatertightSolids, OuterBeveledGlyphsAreClosedOutwardSolids) {
    for (const char* setting :
         {"setAttr typeExtrude1.enableOuterBevel 1", "setAttr typeExtrude1.bevelDistance -0.02",
          "setAttr typeExtrude1.bevelOffset 0.02", "setAttr typeExtrude1.bevelDivisions 3"})
        ASSERT_TRUE(run(setting)) << setting;
    expectSolids(true);
}

// An inward outer bevel in the "Distance Field" mode: rings wider than a
// stroke narrow onto its middle instead of folding over, so every piece
// keeps a positive volume. (Along the mitres, the "Normals" mode folds such
// strokes inside out.)
TEST_P(WatertightSolids, InwardOuterBeveledGlyphsInDistanceFieldModeAreClosedOutwardSolids) {
    for (const char* setting :
         {"setAttr typeExtrude1.mode 0", "setAttr typeExtrude1.enableOuterBevel 1",
          "setAttr typeExtrude1.bevelDistance 0.02", "setAttr typeExtrude1.bevelOffset 0.02",
          "setAttr typeExtrude1.bevelDivisions 3"})
        ASSERT_TRUE(run(setting)) << setting;
    expectSolids(true);
}

// The benchmark's bevels in the "Distance Field" mode.
TEST_P(WatertightSolids, BeveledGlyphsInDistanceFieldModeAreClosedOutwardSolids) {
    ASSERT_TRUE(run("setAttr typeExtrude1.mode 0"));
    for (const char* setting :
         {"setAttr typeExtrude1.bevelStyle 2", "setAttr typeExtrude1.enableFrontBevel 1",
          "setAttr typeExtrude1.enableBackBevel 1", "setAttr typeExtrude1.bevelDistance 0.02",
          "setAttr typeExtrude1.bevelOffset 0.02", "setAttr typeExtrude1.bevelDivisions 3",
          "setAttr typeExtrude1.backBevelDistance 0.02", "setAttr typeExtrude1.backBevelOffset 0.02",
          "setAttr typeExtrude1.backBevelDivisions 3"})
        ASSERT_TRUE(run(setting)) << setting;
    expectSolids(true);
}

std::vector<type::testing::Triangle3> trianglesOf(const ZFnMesh& mesh) {
    ZPointArray points;
    ZIntArray counts;
    ZIntArray corners;
    EXPECT_TRUE(mesh.getPoints(points));
    EXPECT_TRUE(mesh.getTriangles(counts, corners));
    std::vector<type::testing::Triangle3> triangles;
    for (unsigned int c = 0; c + 2 < corners.length(); c += 3) {
        type::testing::Triangle3& t = triangles.emplace_back();
        for (int k = 0; k < 3; ++k) {
            const ZPoint& p = points[corners[c + k]];
            t[k] = {p.x, p.y, p.z};
        }
    }
    return triangles;
}

// Bevels of the "Distance Field" mode from a hair's width to well past half
// the thickest stroke: where rings meet a stroke's middle they stop there, so
// no two triangles of the solid pass through each other.
TEST_P(WatertightSolids, DistanceFieldBevelsOfAnyWidthNeverFold) {
    for (const char* setting :
         {"setAttr typeExtrude1.mode 0", "setAttr typeExtrude1.enableOuterBevel 1",
          "setAttr typeExtrude1.bevelOffset 0.02", "setAttr typeExtrude1.bevelDivisions 3"})
        ASSERT_TRUE(run(setting)) << setting;
    for (const char* width : {"0.01", "0.05", "0.2"}) {
        ASSERT_TRUE(run(std::string("setAttr typeExtrude1.bevelDistance ") + width));
        EXPECT_EQ(type::testing::crossings(trianglesOf(ZFnMesh(meshData()))), 0) << "bevel " << width;
    }
    ASSERT_TRUE(run("setAttr typeExtrude1.mode 1"));
    EXPECT_GT(type::testing::crossings(trianglesOf(ZFnMesh(meshData()))), 0)
        << "the widest bevel folds along the mitres, so the check bites";
}

INSTANTIATE_TEST_SUITE_P(Fonts, WatertightSolids, ::testing::ValuesIn(kFonts),
                         [](const ::testing::TestParamInfo<FontCase>& info) {
                             std::string name = std::string(info.param.family) + info.param.style;
                             name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
                             return name;
                         });

} // namespace
} // namespace typetest
