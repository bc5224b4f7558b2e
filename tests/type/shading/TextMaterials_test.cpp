#include "ExportedMaterials.h"

#include <OpenZyvoHost/ZHostExport.h>
#include <fstream>
#include <map>
#include <set>

// The text object made by the plug-in's script comes with a material for
// each of the cap, bevel and extrusion faces.
namespace typetest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> sourcesOf(const std::string& plug) {
    return texts("listConnections -s 1 -d 0 -p 1 " + plug);
}

std::string nodeOf(const std::string& plug) {
    return plug.substr(0, plug.find('.'));
}

struct Part {
    std::string attribute;
    std::string shader;
    std::string shadingGroup;
};

std::vector<Part> partsOf(int object) {
    const std::string n = std::to_string(object);
    return {{"capGroupId", "typeCapShader" + n, "typeCapSG" + n},
            {"bevelGroupId", "typeBevelShader" + n, "typeBevelSG" + n},
            {"extrudeGroupId", "typeExtrusionShader" + n, "typeExtrusionSG" + n}};
}

using TextMaterials = TypePluginTest;

TEST_F(TextMaterials, EachPartOfTheSolidIsBoundToAShadingGroupOfItsOwn) {
    ASSERT_TRUE(run("typeCreateText"));
    std::set<int> ids;
    std::set<std::string> colours;
    int objectGroup = 0;
    for (const Part& part : partsOf(1)) {
        const std::vector<std::string> idSource = sourcesOf("typeExtrude1." + part.attribute);
        ASSERT_EQ(idSource.size(), 1u) << part.attribute;
        const std::string groupId = nodeOf(idSource[0]);
        EXPECT_EQ(text("nodeType " + groupId), "groupId");
        ids.insert(number("getAttr " + groupId + ".groupId"));

        EXPECT_THAT(sourcesOf(part.shadingGroup + ".surfaceShader"), ElementsAre(part.shader + ".outColor"));
        EXPECT_EQ(text("nodeType " + part.shader), "lambert");
        std::string colour;
        for (const char* channel : {"R", "G", "B"})
            colour += std::to_string(real("getAttr " + part.shader + ".color" + channel)) + " ";
        colours.insert(colour);

        const std::string group =
            "typeMesh1Shape.instObjGroups[0].objectGroups[" + std::to_string(objectGroup++) + "]";
        EXPECT_THAT(sourcesOf(group + ".objectGroupId"), ElementsAre(groupId + ".groupId"));
        EXPECT_THAT(sourcesOf(part.shadingGroup + ".dagSetMembers[0]"), ElementsAre(group));
        EXPECT_THAT(sourcesOf(part.shadingGroup + ".groupNodes[0]"), ElementsAre(groupId + ".message"));
    }
    EXPECT_EQ(ids.size(), 3u) << "each part has an id of its own";
    EXPECT_EQ(ids.count(0), 0u) << "no part shares the id every new groupId starts with";
    EXPECT_EQ(colours.size(), 3u) << "each part starts in a colour of its own";
}

TEST_F(TextMaterials, ASecondTextObjectGetsMaterialsAndIdsOfItsOwn) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("typeCreateText"));
    std::set<int> ids;
    for (int object : {1, 2})
        for (const Part& part : partsOf(object)) {
            EXPECT_EQ(text("nodeType " + part.shadingGroup), "shadingEngine");
            const std::string extrude = "typeExtrude" + std::to_string(object) + "." + part.attribute;
            ids.insert(number("getAttr " + extrude));
        }
    EXPECT_EQ(ids.size(), 6u);
    EXPECT_THAT(sourcesOf("typeCapSG2.dagSetMembers[0]"),
                ElementsAre("typeMesh2Shape.instObjGroups[0].objectGroups[0]"));
}

// A text object whose materials cannot be bound is taken back whole, with
// the shaders, shading groups and group ids made for it.
TEST_F(TextMaterials, CreateTextTakesBackItsMaterialsWhenBindingFails) {
    const std::vector<std::string> enginesBefore = texts("ls -type shadingEngine");
    const std::vector<std::string> shadersBefore = texts("ls -type lambert");
    python("import zyvo.cmds\n"
           "def refuse(**flags):\n"
           "    raise RuntimeError('assignShaderToType: refused ' + flags['sg'])\n"
           "zyvo.cmds.assignShaderToType = refuse");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("typeCreateText"));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("refused typeCapSG1"), std::string::npos);
    python("del zyvo.cmds.assignShaderToType");
    EXPECT_EQ(texts("ls -type shadingEngine"), enginesBefore);
    EXPECT_EQ(texts("ls -type lambert"), shadersBefore);
    for (const char* type : {"groupId", "type", "typeExtrude", "mesh"})
        EXPECT_THAT(texts(std::string("ls -type ") + type), IsEmpty()) << type;
}

TEST_F(TextMaterials, ExportWritesTheCapBevelAndExtrusionWithTheirMaterials) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("setAttr typeExtrude1.enableFrontBevel 1"));
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelStyle 2"));
    const std::map<std::string, int> triangles = exportedTriangles("typeMesh1");
    std::vector<std::string> materials;
    for (const auto& [material, count] : triangles)
        if (count > 0)
            materials.push_back(material);
    EXPECT_THAT(materials, ElementsAre("typeBevelSG1", "typeCapSG1", "typeExtrusionSG1"));
}

} // namespace
} // namespace typetest
