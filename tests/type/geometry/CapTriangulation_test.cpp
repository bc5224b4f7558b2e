#include "CutChecks.h"
#include "InstalledGlyphs.h"
#include "data/MeshAccess.h"
#include "graph/NodeTypeRegistry.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/LoopChecks.h"
#include "mesh/PlanarFace.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace type {
namespace {

// The caps the type node makes of every glyph of a font, cut by the mesh kernel.
class CapTriangulation : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        oz::NodeTypeInfo info;
        info.name = fontNode::kTypeName;
        info.id = ZTypeId(fontNode::kTypeId);
        info.creator = [] {
            return static_cast<ZPxNode*>(fontNode::creator());
        };
        info.initializer = fontNode::initialize;
        ZString error;
        ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
        ASSERT_TRUE(ZFileIO::newFile(true));
        ZStatus status;
        m_node = ZFnDependencyNode().create(ZString(fontNode::kTypeName), &status);
        ASSERT_TRUE(status);
    }

    void TearDown() override {
        ZFileIO::newFile(true);
        oz::NodeTypeRegistry::instance().deregisterType(ZString(fontNode::kTypeName));
    }

    // The node's flat text mesh for every character of the style.
    const oz::mesh::Mesh* capsOf(const std::string& family, const std::string& style,
                                 const std::u32string& text) {
        EXPECT_TRUE(ZPlug(m_node, fontNode::currentFont).setValue(ZString(family)));
        EXPECT_TRUE(ZPlug(m_node, fontNode::currentStyle).setValue(ZString(style)));
        EXPECT_TRUE(ZPlug(m_node, fontNode::textInput).setValue(encodeHexText(utf8Lines(text))));
        EXPECT_TRUE(ZPlug(m_node, fontNode::outputMesh).getValue(m_mesh));
        return oz::readMesh(oz::meshTargetOf(m_mesh), nullptr);
    }

    ZObject m_node;
    ZObject m_mesh;
};

// Every glyph's cap whose loops are simple and properly nested takes the fast cut and comes out
// exact: no zero-area triangle (the sweep left two on each straight stem with a point in it), no
// triangle outside the outline or in a hole, all turning with the cap's normal, covering the cap's
// area. Only the rare cap whose outline touches itself (the overlap removal leaves a few) is swept.
TEST_P(CapTriangulation, EveryWellFormedGlyphCapIsCutExactlyWithoutTheSweep) {
    const auto styles = installedStyles(GetParam());
    ASSERT_FALSE(styles.empty()) << GetParam() << " is not installed";
    for (const auto& [style, characters] : styles) {
        SCOPED_TRACE(std::string(GetParam()) + " " + style);
        const oz::mesh::Mesh* mesh = capsOf(GetParam(), style, characters);
        ASSERT_NE(mesh, nullptr);
        ASSERT_GT(mesh->faceCount(), static_cast<int32_t>(characters.size() / 2));
        const oz::mesh::Triangulation cut = oz::mesh::triangulateFaces(mesh->faces(), mesh->points());
        int32_t illFormed = 0;
        int faults = 0;
        oz::mesh::PlanarFace planar;
        for (int32_t f = 0; f < mesh->faceCount() && faults < 10; ++f) {
            const oz::mesh::Vector3 normal = *mesh->faceNormal(f);
            if (!oz::mesh::flattenFace(mesh->faces(), mesh->points(), f, normal, planar) ||
                !oz::mesh::loopsWellFormed(planar)) {
                ++illFormed;
                continue;
            }
            const std::string fault =
                oz::mesh::test::cutFault(mesh->faces(), mesh->points(), f, cut.faceTriangles(f), normal);
            if (!fault.empty()) {
                ADD_FAILURE() << "face " << f << ": " << fault;
                ++faults;
            }
        }
        EXPECT_LE(cut.counts.tessellated, illFormed);
        EXPECT_LE(100 * cut.counts.tessellated, mesh->faceCount()) << "more than 1 % of the caps were swept";
        std::cout << GetParam() << " " << style << ": " << characters.size() << " characters, "
                  << mesh->faceCount() << " faces: " << cut.counts.planar << " cut (" << cut.counts.similar
                  << " with the cut of a cap alike), " << cut.counts.memo << " from the memo, "
                  << cut.counts.simple << " triangles or convex quads, " << cut.counts.tessellated
                  << " swept\n";
    }
}

// Every copy of a letter in a text is laid out as an exact translate of the others, at any size
// and alignment, so the mesh cuts each distinct letter once. Scaling the pen position and the
// outline together used to round each copy differently, and only a few copies hit the memo.
TEST_F(CapTriangulation, RepeatedGlyphsAreExactTranslates) {
    EXPECT_TRUE(ZPlug(m_node, fontNode::fontSize).setValue(7.3));
    EXPECT_TRUE(ZPlug(m_node, fontNode::alignmentMode).setValue(2));
    const oz::mesh::Mesh* mesh = capsOf("DejaVu Sans", "Book", U"gab abg bag\nbag gab\nabg");
    ASSERT_NE(mesh, nullptr);
    ASSERT_EQ(mesh->faceCount(), 18);
    const oz::mesh::Triangulation cut = oz::mesh::triangulateFaces(mesh->faces(), mesh->points());
    EXPECT_EQ(cut.counts.planar, 3);
    EXPECT_EQ(cut.counts.memo, 15);
}

INSTANTIATE_TEST_SUITE_P(InstalledFonts, CapTriangulation,
                         ::testing::Values("DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono",
                                           "Liberation Sans", "Liberation Serif"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             std::string name;
                             for (const char* c = info.param; *c; ++c) {
                                 if (*c != ' ')
                                     name += *c;
                             }
                             return name;
                         });

} // namespace
} // namespace type
