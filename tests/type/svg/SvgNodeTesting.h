#pragma once

#include "graph/NodeTypeRegistry.h"
#include "svg/SvgNode.h"

#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZVectorArray.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace type::testing {

// A scene with one svgToPoly node, its class linked into the test and
// evaluated through the host's graph.
class SvgNodeTest : public ::testing::Test {
protected:
    void SetUp() override {
        oz::NodeTypeInfo info;
        info.name = svgNode::kTypeName;
        info.id = ZTypeId(svgNode::kTypeId);
        info.creator = [] {
            return static_cast<ZPxNode*>(svgNode::creator());
        };
        info.initializer = svgNode::initialize;
        ZString error;
        ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
        ASSERT_TRUE(ZFileIO::newFile(true));
        ZStatus status;
        m_node = ZFnDependencyNode().create(ZString(svgNode::kTypeName), &status);
        ASSERT_TRUE(status);
    }

    void TearDown() override {
        ZFileIO::newFile(true);
        oz::NodeTypeRegistry::instance().deregisterType(ZString(svgNode::kTypeName));
    }

    ZPlug plug(const ZObject& attribute) const { return ZPlug(m_node, attribute); }

    void paste(const std::string& document) {
        ASSERT_TRUE(plug(svgNode::svgMode).setValue(static_cast<short>(SvgSourceMode::paste)));
        ASSERT_TRUE(plug(svgNode::svgPaste).setValue(ZString(document)));
    }

    template <typename Fn, typename Array> Array arrayOf(const ZObject& attribute) const {
        ZObject data;
        EXPECT_TRUE(plug(attribute).getValue(data));
        Array values;
        if (!data.isNull())
            Fn(data).copyTo(values);
        return values;
    }

    std::vector<double> doubles(const ZObject& attribute) const {
        return arrayOf<ZFnDoubleArrayData, ZDoubleArray>(attribute).asVector();
    }
    std::vector<int> ints(const ZObject& attribute) const {
        return arrayOf<ZFnIntArrayData, ZIntArray>(attribute).asVector();
    }
    std::vector<ZVector> vectors(const ZObject& attribute) const {
        return arrayOf<ZFnVectorArrayData, ZVectorArray>(attribute).asVector();
    }
    std::vector<std::string> strings(const ZObject& attribute) const {
        const ZStringArray array = arrayOf<ZFnStringArrayData, ZStringArray>(attribute);
        std::vector<std::string> values;
        for (unsigned int i = 0; i < array.length(); ++i)
            values.emplace_back(array[i].asChar());
        return values;
    }
    ZFnMesh mesh() const {
        ZObject data;
        EXPECT_TRUE(plug(svgNode::outputMesh).getValue(data));
        return ZFnMesh(data);
    }
    std::vector<ZPoint> meshPoints() const {
        ZPointArray points;
        mesh().getPoints(points);
        return points.asVector();
    }

    ZObject m_node;
};

} // namespace type::testing
