#include "../layout/LayoutTesting.h"
#include "fonts/FontFace.h"
#include "layout/LegacyPath.h"
#include "layout/PreLayoutPath.h"
#include "textnode/TextToMesh.h"

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <gtest/gtest.h>

namespace type {
namespace {

using testing::dejaVu;

// Hole points are merged into any coincident vertex of the mesh, so the
// records beside the mesh hold only when they are read from the mesh built:
// the totals end at its vertex count and every hole triple names a loop the
// mesh has, with its face, its length and its first vertex.
void expectRecordsDescribe(const LayoutResult& layout, const ZObject& data) {
    const ZFnMesh mesh(data);
    ASSERT_FALSE(layout.vertexTotals.empty());
    EXPECT_EQ(layout.vertexTotals.back(), mesh.numVertices());
    for (std::size_t k = 1; k < layout.vertexTotals.size(); ++k)
        EXPECT_GT(layout.vertexTotals[k], layout.vertexTotals[k - 1]) << "character " << k;

    ZIntArray meshHoles, holeVertices;
    mesh.getHoles(meshHoles, holeVertices);
    ASSERT_EQ(meshHoles.length(), layout.holeInfo.size());
    for (unsigned int h = 0; h < meshHoles.length(); h += 3) {
        EXPECT_EQ(layout.holeInfo[h], meshHoles[h]) << "hole " << h / 3;
        EXPECT_EQ(layout.holeInfo[h + 1], meshHoles[h + 1]) << "hole " << h / 3;
        EXPECT_EQ(layout.holeInfo[h + 2], holeVertices[static_cast<unsigned int>(meshHoles[h + 2])])
            << "hole " << h / 3;
        EXPECT_LE(layout.holeInfo[h + 2] + layout.holeInfo[h + 1], mesh.numVertices()) << "hole " << h / 3;
    }
}

TEST(TextToMesh, CoincidentCharactersCountOnlyTheVerticesTheyAdd) {
    // Without kerning every character of a word stands on the same spot, so
    // the second O's counter coincides with the first one's and is merged
    // into it.
    TypeSettings settings = dejaVu(u"OO");
    settings.kerningScale = 0.0f;

    LayoutResult preLayout = decomposePreLayout(settings);
    ZObject preLayoutMesh;
    ASSERT_TRUE(textToMesh(preLayout, preLayoutMesh));
    expectRecordsDescribe(preLayout, preLayoutMesh);

    const std::string file = testing::fontFile("DejaVu Sans", "Book");
    ASSERT_FALSE(file.empty());
    auto loaded = FontFace::load(ZString(file), 0);
    ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
    LayoutResult legacy = decomposeLegacy(settings, std::get<FontFace>(loaded).face());
    ZObject legacyMesh;
    ASSERT_TRUE(textToMesh(legacy, legacyMesh));
    expectRecordsDescribe(legacy, legacyMesh);
}

TEST(TextToMesh, HoleCutIntoTwoFacesIsCountedOnce) {
    // The triangle's box holds the hole as well as the square's does, so the
    // hole is cut into both faces and its second cut reuses the first one's
    // points.
    const Contour square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const Contour triangle{{5, -1}, {20, -1}, {20, 11}};
    const Contour hole{{6, 2}, {6, 4}, {8, 4}, {8, 2}};
    LayoutResult layout;
    layout.caps = PlannedCaps{planCapFaces({square, triangle, hole}, ThinningSettings{})};
    layout.shellsPerLine = {2};
    layout.lineOffsets = {0.0};
    ASSERT_EQ(std::get<PlannedCaps>(layout.caps)[0].holes.size(), 2u);

    ZObject data;
    ASSERT_TRUE(textToMesh(layout, data));
    expectRecordsDescribe(layout, data);
    EXPECT_EQ(layout.vertexTotals.back(), 11.0);
}

TEST(TextToMesh, ZeroFontSizeLeavesOutHolesInsteadOfFailing) {
    // At size 0 every point of the legacy path's caps is the origin, so the
    // O's counter merges into a single vertex and cuts nothing out.
    TypeSettings settings = dejaVu(u"O");
    settings.fontSize = 0.0f;
    const std::string file = testing::fontFile("DejaVu Sans", "Book");
    ASSERT_FALSE(file.empty());
    auto loaded = FontFace::load(ZString(file), 0);
    ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
    LayoutResult legacy = decomposeLegacy(settings, std::get<FontFace>(loaded).face());

    ZObject mesh;
    ASSERT_TRUE(textToMesh(legacy, mesh));
    expectRecordsDescribe(legacy, mesh);
    EXPECT_TRUE(legacy.holeInfo.empty());
}

} // namespace
} // namespace type
