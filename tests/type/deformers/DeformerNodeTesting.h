#pragma once

#include "../extrude/ExtrudeNodeTesting.h"

#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZVectorArray.h>
#include <string>
#include <vector>

// The solid text of ExtrudeNodeTest flowing through one deformer, wired as
// the plug-in's scripts wire it.
namespace typetest {

class DeformerNodeTest : public ExtrudeNodeTest {
protected:
    void wire(const std::string& deformerType, const std::string& deformer) {
        ASSERT_EQ(text("createNode " + deformerType), deformer);
        ASSERT_TRUE(run("connectAttr typeExtrude1.outputMesh " + deformer + ".input[0].inputGeom"));
        ASSERT_TRUE(run("connectAttr type1.grouping " + deformer + ".grouping"));
        ASSERT_TRUE(run("connectAttr type1.vertsPerChar " + deformer + ".vertsPerChar"));
        ASSERT_TRUE(run("connectAttr typeExtrude1.vertexGroupIds " + deformer + ".vertexGroupIds"));
    }

    static void setText(const std::string& hexBytes) {
        ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"" + hexBytes + "\""));
    }

    static std::vector<ZPoint> deformed(const std::string& deformer) {
        ZObject data;
        EXPECT_TRUE(plugNamed(deformer, "outputGeom").elementByLogicalIndex(0).getValue(data));
        ZPointArray out;
        ZFnMesh(data).getPoints(out);
        return out.asVector();
    }

    // The vertex ids of each character, from the vertex groups typeExtrude
    // publishes.
    static std::vector<std::vector<int>> characters() {
        ZObject ids;
        EXPECT_TRUE(plugNamed("typeExtrude1", "vertexGroupIds").getValue(ids));
        ZIntArray groupIds;
        ZFnIntArrayData(ids).copyTo(groupIds);
        const ZFnGeometryData groups(meshData());
        std::vector<std::vector<int>> out;
        for (int id : groupIds.asVector()) {
            ZIntArray members;
            ZFnSingleIndexedComponent(groups.objectGroupComponent(static_cast<unsigned int>(id)))
                .getElements(members);
            out.push_back(members.asVector());
        }
        return out;
    }

    static std::vector<ZVector> vectors(const std::string& node, const std::string& attribute) {
        ZObject data;
        EXPECT_TRUE(plugNamed(node, attribute).getValue(data));
        ZVectorArray values;
        if (!data.isNull())
            ZFnVectorArrayData(data).copyTo(values);
        return values.asVector();
    }
};

} // namespace typetest
