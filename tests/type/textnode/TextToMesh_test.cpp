#include "../layout/LayoutTesting.h"
#include "fonts/FontFace.h"
#include "layout/LegacyPath.h"
#include "layout/PreLayoutPath.h"
#include "layout/TextLayoutPath.h"
#include "textnode/TextToMesh.h"

#include <OpenZyvo/ZFloatVectorArray.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::dejaVu;
using ::testing::HasSubstr;
using testing::shapesOf;

LayoutResult layOut(const TypeSettings& settings) {
    GlyphOutlineCache cache;
    return decomposeTextLayout(settings, cache);
}

struct BuiltMesh {
    ZObject data;
    ZFnMesh mesh;
    ZPointArray points;
};

BuiltMesh build(LayoutResult& layout) {
    BuiltMesh built;
    const ZStatus status = textToMesh(layout, built.data);
    EXPECT_TRUE(status) << status.errorString().asChar();
    built.mesh.setObject(built.data);
    built.mesh.getPoints(built.points);
    return built;
}

// The layout's holeInfo must name the very loops the mesh holds: the same face,
// the same point count, and consecutive vertices from the stated first one.
void expectHoleInfoMatchesMesh(const LayoutResult& layout, const ZFnMesh& mesh) {
    ZIntArray meshHoles, holeVertices;
    mesh.getHoles(meshHoles, holeVertices);
    ASSERT_EQ(meshHoles.length(), layout.holeInfo.size());
    for (unsigned int h = 0; h + 2 < meshHoles.length(); h += 3) {
        EXPECT_EQ(meshHoles[h], layout.holeInfo[h]) << "hole " << h / 3;
        EXPECT_EQ(meshHoles[h + 1], layout.holeInfo[h + 1]) << "hole " << h / 3;
        for (int v = 0; v < meshHoles[h + 1]; ++v)
            EXPECT_EQ(holeVertices[static_cast<unsigned int>(meshHoles[h + 2] + v)],
                      layout.holeInfo[h + 2] + v);
    }
}

BoundingBox boxOfVertices(const ZPointArray& points, int first, int end) {
    BoundingBox box;
    for (int v = first; v < end; ++v)
        box.extend(Point2{points[static_cast<unsigned int>(v)].x, points[static_cast<unsigned int>(v)].y});
    return box;
}

TEST(TextToMesh, HolesOfOneAndTwoHoleGlyphsLandInTheirFaces) {
    LayoutResult o = layOut(dejaVu(u"O"));
    const BuiltMesh oMesh = build(o);
    ASSERT_EQ(o.holeInfo.size(), 3u);
    EXPECT_EQ(oMesh.mesh.numPolygons(), 1);
    expectHoleInfoMatchesMesh(o, oMesh.mesh);
    const Shape& shape = shapesOf(o)[0][0];
    EXPECT_EQ(o.holeInfo[1], static_cast<int>(shape.holes[0].size()));
    EXPECT_EQ(o.holeInfo[2], static_cast<int>(shape.outer.size()));

    // B has two counters; the second hole's first vertex follows the first hole.
    LayoutResult b = layOut(dejaVu(u"OB"));
    const BuiltMesh bMesh = build(b);
    ASSERT_EQ(b.holeInfo.size(), 9u);
    EXPECT_EQ(bMesh.mesh.numPolygons(), 2);
    expectHoleInfoMatchesMesh(b, bMesh.mesh);
    EXPECT_EQ(b.holeInfo[3], 1);
    EXPECT_EQ(b.holeInfo[6], 1);
    EXPECT_EQ(b.holeInfo[8], b.holeInfo[5] + b.holeInfo[4]);
    EXPECT_EQ(bMesh.mesh.numVertices(), static_cast<int>(b.vertexTotals.back()));
}

TEST(TextToMesh, EachCharacterOwnsItsVertexRange) {
    LayoutResult layout = layOut(dejaVu(u"Ab i\n\nO8%"));
    const BuiltMesh built = build(layout);
    ASSERT_EQ(layout.vertexTotals.size(), layout.boxMin.size());
    EXPECT_EQ(built.mesh.numVertices(), static_cast<int>(layout.vertexTotals.back()));

    int first = 0;
    for (std::size_t k = 0; k < layout.vertexTotals.size(); ++k) {
        const int end = static_cast<int>(layout.vertexTotals[k]);
        const BoundingBox box = boxOfVertices(built.points, first, end);
        EXPECT_NEAR(box.min.x, layout.boxMin[k].x, 1e-9) << "character " << k;
        EXPECT_NEAR(box.min.y, layout.boxMin[k].y, 1e-9) << "character " << k;
        EXPECT_NEAR(box.max.x, layout.boxMax[k].x, 1e-9) << "character " << k;
        EXPECT_NEAR(box.max.y, layout.boxMax[k].y, 1e-9) << "character " << k;
        first = end;
    }
    for (const ZPoint& p : built.points)
        EXPECT_EQ(p.z, 0.0);
}

TEST(TextToMesh, AlignmentMovesEveryVertexOfItsLine) {
    TypeSettings settings = dejaVu(u"WW W\nI\n\nmm");
    LayoutResult leftAligned = layOut(settings);
    const BuiltMesh left = build(leftAligned);
    for (const AlignmentMode alignment : {AlignmentMode::Centre, AlignmentMode::Right}) {
        settings.alignment = alignment;
        LayoutResult layout = layOut(settings);
        ASSERT_EQ(layout.lineOffsets.size(), 4u);
        EXPECT_GT(layout.lineOffsets[0], layout.lineOffsets[1]);
        const BuiltMesh aligned = build(layout);
        ASSERT_EQ(aligned.points.length(), left.points.length());

        // Characters 0-2 stand on line 0, 3 on line 1, 4-5 on line 3.
        const std::size_t lineOfCharacter[] = {0, 0, 0, 1, 3, 3};
        int first = 0;
        for (std::size_t k = 0; k < layout.vertexTotals.size(); ++k) {
            const int end = static_cast<int>(layout.vertexTotals[k]);
            const double offset = layout.lineOffsets[lineOfCharacter[k]];
            for (int v = first; v < end; ++v) {
                const auto i = static_cast<unsigned int>(v);
                ASSERT_NEAR(left.points[i].x - aligned.points[i].x, offset, 1e-9) << "character " << k;
                ASSERT_EQ(left.points[i].y, aligned.points[i].y);
            }
            first = end;
        }
    }
}

TEST(TextToMesh, PlannedCapsCutTheirHolesAndFaceUp) {
    LayoutResult layout = decomposePreLayout(dejaVu(u"O B8"));
    const BuiltMesh built = build(layout);
    ASSERT_EQ(layout.holeInfo.size(), 15u);
    EXPECT_EQ(built.mesh.numPolygons(), 3);
    EXPECT_EQ(built.mesh.numVertices(), static_cast<int>(layout.vertexTotals.back()));
    expectHoleInfoMatchesMesh(layout, built.mesh);

    ZFloatVectorArray normals;
    ASSERT_TRUE(built.mesh.getNormals(normals));
    EXPECT_EQ(static_cast<int>(normals.length()), built.mesh.numFaceVertices());
    for (const ZFloatVector& n : normals)
        ASSERT_EQ(n, ZFloatVector(0.0f, 0.0f, 1.0f));

    // The caps must cover the glyphs, not their counters: triangulating the
    // faces gives a positive area only when each face and its holes wind
    // consistently.
    ZIntArray counts, triangles;
    ASSERT_TRUE(built.mesh.getTriangles(counts, triangles));
    for (unsigned int f = 0; f < counts.length(); ++f)
        EXPECT_GT(counts[f], 0) << "face " << f;
}

TEST(TextToMesh, LegacyCapsReplayFacesThenHoles) {
    const std::string file = testing::fontFile("DejaVu Sans", "Book");
    ASSERT_FALSE(file.empty());
    auto loaded = FontFace::load(ZString(file), 0);
    ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
    TypeSettings settings = dejaVu(u"Bi\nO");
    settings.alignment = AlignmentMode::Centre;
    LayoutResult layout = decomposeLegacy(settings, std::get<FontFace>(loaded).face());

    const BuiltMesh built = build(layout);
    EXPECT_EQ(built.mesh.numPolygons(), 4);
    EXPECT_EQ(built.mesh.numVertices(), static_cast<int>(layout.vertexTotals.back()));
    expectHoleInfoMatchesMesh(layout, built.mesh);
    // "O" is alone on its line, so centring puts it half its width left.
    const int firstOfO = static_cast<int>(layout.vertexTotals[1]);
    const BoundingBox o = boxOfVertices(built.points, firstOfO, built.mesh.numVertices());
    EXPECT_NEAR(o.min.x, layout.boxMin[2].x - layout.lineOffsets[1], 1e-9);
}

TEST(TextToMesh, EmptyLayoutGivesAnEmptyMesh) {
    LayoutResult empty = layOut(dejaVu(u""));
    const BuiltMesh built = build(empty);
    EXPECT_FALSE(built.data.isNull());
    EXPECT_EQ(built.mesh.numVertices(), 0);
    EXPECT_EQ(built.mesh.numPolygons(), 0);
}

TEST(TextToMesh, AFailingHostCallIsReportedAndReturned) {
    LayoutResult layout;
    CapFacePlan plan;
    plan.faces.push_back({{0, 0}, {1, 0}, {1, 1}});
    plan.holes.push_back({3, {{0.2, 0.1}, {0.8, 0.1}, {0.8, 0.5}}});
    layout.caps = PlannedCaps{plan};
    layout.shellsPerLine = {1};
    layout.lineOffsets = {0.0};

    ZObject data;
    ::testing::internal::CaptureStderr();
    const ZStatus status = textToMesh(layout, data);
    const std::string error = ::testing::internal::GetCapturedStderr();
    EXPECT_FALSE(status);
    EXPECT_THAT(error, HasSubstr("\nAPI error detected in TextToMesh at line "));
    EXPECT_THAT(error, HasSubstr(status.errorString().asChar()));
}

} // namespace
} // namespace type
