#pragma once

#include "../plugin/PluginTesting.h"

#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSelectionList.h>
#include <string>
#include <vector>

// A text object as the plug-in's scripts wire it, reduced to what the
// typeExtrude node reads: type1 (DejaVu Sans) feeding typeExtrude1.
namespace typetest {

inline ZObject nodeNamed(const std::string& name) {
    ZSelectionList list;
    ZObject node;
    EXPECT_TRUE(list.add(ZString(name)));
    EXPECT_TRUE(list.getDependNode(0, node));
    return node;
}

inline ZPlug plugNamed(const std::string& node, const std::string& attribute) {
    ZStatus status;
    const ZObject object = nodeNamed(node);
    const ZPlug plug = ZFnDependencyNode(object).findPlug(ZString(attribute), true, &status);
    EXPECT_TRUE(status) << node << "." << attribute;
    return plug;
}

class ExtrudeNodeTest : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_EQ(text("createNode type"), "type1");
        ASSERT_TRUE(run("setAttr -type \"string\" type1.currentFont \"DejaVu Sans\""));
        ASSERT_TRUE(run("setAttr -type \"string\" type1.currentStyle \"Book\""));
        ASSERT_EQ(text("createNode typeExtrude"), "typeExtrude1");
        ASSERT_TRUE(run("connectAttr type1.outputMesh typeExtrude1.inputMesh"));
        ASSERT_TRUE(run("connectAttr type1.vertsPerChar typeExtrude1.vertsPerChar"));
    }

    static ZObject meshData(const std::string& node = "typeExtrude1") {
        ZObject data;
        EXPECT_TRUE(plugNamed(node, "outputMesh").getValue(data));
        return data;
    }

    static int vertexCount() { return ZFnMesh(meshData()).numVertices(); }

    static std::vector<ZPoint> points() {
        ZPointArray out;
        ZFnMesh(meshData()).getPoints(out);
        return out.asVector();
    }

    // The faces of one of the three component lists.
    static std::vector<int> components(const std::string& list) {
        ZObject data;
        EXPECT_TRUE(plugNamed("typeExtrude1", list).getValue(data)) << list;
        std::vector<int> faces;
        if (data.isNull())
            return faces;
        const ZFnComponentListData components(data);
        for (unsigned int i = 0; i < components.length(); ++i) {
            ZIntArray elements;
            ZFnSingleIndexedComponent(components[i]).getElements(elements);
            faces.insert(faces.end(), elements.begin(), elements.end());
        }
        return faces;
    }

    static std::vector<unsigned int> objectGroups(const ZObject& data) {
        const ZFnGeometryData geometry(data);
        std::vector<unsigned int> ids;
        for (unsigned int i = 0; i < geometry.objectGroupCount(); ++i)
            ids.push_back(geometry.objectGroup(i));
        return ids;
    }
};

} // namespace typetest
