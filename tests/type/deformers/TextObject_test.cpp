#include "DeformerNodeTesting.h"

#include <OpenZyvo/ZBoundingBox.h>

// The deformers inside the text object the plug-in's creation script makes.
namespace typetest {
namespace {

class TextObject : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_TRUE(run("typeCreateText"));
    }

    static std::vector<ZPoint> shown() {
        ZObject data;
        EXPECT_TRUE(plugNamed("typeMesh1Shape", "outMesh").getValue(data));
        ZPointArray out;
        ZFnMesh(data).getPoints(out);
        return out.asVector();
    }

    static std::vector<ZPoint> solid() {
        ZObject data;
        EXPECT_TRUE(plugNamed("typeExtrude1", "outputMesh").getValue(data));
        ZPointArray out;
        ZFnMesh(data).getPoints(out);
        return out.asVector();
    }

    static ZBoundingBox bounds(const std::vector<ZPoint>& points) {
        ZBoundingBox box;
        for (const ZPoint& p : points)
            box.expand(p);
        return box;
    }
};

TEST_F(TextObject, ShowsTheSolidUntouchedWhenNothingIsAnimatedOrAdjusted) {
    const std::vector<ZPoint> before = solid();
    const std::vector<ZPoint> after = shown();
    ASSERT_EQ(before.size(), after.size());
    ASSERT_FALSE(before.empty());
    for (std::size_t i = 0; i < before.size(); ++i)
        ASSERT_TRUE(before[i] == after[i]) << i;
}

TEST_F(TextObject, CentredTextIsNotShiftedTwice) {
    ASSERT_TRUE(run("setAttr type1.alignmentMode 2"));
    const ZBoundingBox before = bounds(solid());
    const ZBoundingBox after = bounds(shown());
    EXPECT_NEAR(after.min().x, before.min().x, 1e-9);
    EXPECT_NEAR(after.max().x, before.max().x, 1e-9);
}

TEST_F(TextObject, AnimatesAndAdjustsTheSolid) {
    ASSERT_TRUE(run("setAttr shellDeformer1.enableAnimation 1"));
    ASSERT_TRUE(run("setKeyframe -t 0 -v 0 -at animationPositionY shellDeformer1"));
    ASSERT_TRUE(run("setKeyframe -t 10 -v 10 -at animationPositionY shellDeformer1"));
    ASSERT_TRUE(run("currentTime 10"));
    const ZBoundingBox before = bounds(solid());
    const ZBoundingBox after = bounds(shown());
    // The first character has risen the whole way, the last not at all.
    EXPECT_NEAR(after.max().y, before.max().y + 10.0, 1e-6);
    EXPECT_NEAR(after.min().y, before.min().y, 1e-6);
}

TEST_F(TextObject, AnimatesFlatText) {
    ASSERT_TRUE(run("connectAttr -f type1.outputMesh shellDeformer1.input[0].inputGeom"));
    ASSERT_TRUE(run("setAttr shellDeformer1.enableAnimation 1"));
    ASSERT_TRUE(run("setAttr shellDeformer1.animationPositionZ 2"));
    ASSERT_TRUE(run("currentTime 3"));
    ZObject flat;
    ASSERT_TRUE(plugNamed("type1", "outputMesh").getValue(flat));
    const std::vector<ZPoint> after = shown();
    ASSERT_EQ(after.size(), static_cast<std::size_t>(ZFnMesh(flat).numVertices()));
    for (const ZPoint& p : after)
        ASSERT_NEAR(p.z, 2.0, 1e-9);
}

// The extrusion adds the characters' vertex groups only once their ids are
// asked for; the deformers ask before they copy the mesh, so the shown mesh
// (and an export of it) has a group per character.
TEST_F(TextObject, ShownMeshCarriesTheCharacterGroups) {
    ZObject data;
    ASSERT_TRUE(plugNamed("typeMesh1Shape", "outMesh").getValue(data));
    const ZFnGeometryData groups(data);
    ZObject ids;
    ASSERT_TRUE(plugNamed("typeExtrude1", "vertexGroupIds").getValue(ids));
    ZIntArray characterIds;
    ZFnIntArrayData(ids).copyTo(characterIds);
    ASSERT_GT(characterIds.length(), 0u);
    for (int id : characterIds.asVector())
        EXPECT_TRUE(groups.hasObjectGroup(static_cast<unsigned int>(id))) << id;
}

} // namespace
} // namespace typetest
