#pragma once

#include "graph/NodeTypeRegistry.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZMessage.h>
#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZVectorArray.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace type::testing {

// A scene with one type node in DejaVu Sans, the node class linked into the
// test (so its caches can be inspected), evaluated through the host's graph.
class TypeNodeTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    ZPlug plug(const ZObject& attribute) const { return ZPlug(m_node, attribute); }
    // Glyph outlines the node has decomposed since it was created.
    std::size_t glyphDecompositions() const;

    void setText(const std::string& utf8) {
        ASSERT_TRUE(plug(fontNode::textInput).setValue(encodeHexText(utf8)));
    }
    void setTriple(const ZObject& attribute, double x, double y, double z);

    std::vector<double> doubles(const ZObject& attribute) const;
    std::vector<int> ints(const ZObject& attribute) const;
    std::vector<ZVector> vectors(const ZObject& attribute) const;
    ZFnMesh mesh() const;
    std::vector<ZPoint> meshPoints() const;

    // Successful computes of the node since the test began.
    int evaluations() const { return m_evaluations; }

    ZObject m_node;

private:
    static void countEvaluation(ZNodeMessage::AttributeMessage message, ZPlug&, ZPlug&, void* self);

    ZCallbackId m_callback = 0;
    int m_evaluations = 0;
};

namespace detail {

inline void registerTypeNode() {
    oz::NodeTypeInfo info;
    info.name = fontNode::kTypeName;
    info.id = ZTypeId(fontNode::kTypeId);
    info.creator = [] {
        return static_cast<ZPxNode*>(fontNode::creator());
    };
    info.initializer = fontNode::initialize;
    ZString error;
    ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
}

template <typename Fn, typename Array> Array arrayOf(const ZPlug& plug) {
    ZObject data;
    EXPECT_TRUE(plug.getValue(data)) << plug.name();
    Array values;
    if (!data.isNull())
        Fn(data).copyTo(values);
    return values;
}

} // namespace detail

inline void TypeNodeTest::SetUp() {
    detail::registerTypeNode();
    ASSERT_TRUE(ZFileIO::newFile(true));
    ZStatus status;
    m_node = ZFnDependencyNode().create(ZString(fontNode::kTypeName), &status);
    ASSERT_TRUE(status);
    ASSERT_TRUE(plug(fontNode::currentFont).setValue("DejaVu Sans"));
    ASSERT_TRUE(plug(fontNode::currentStyle).setValue("Book"));
    m_callback = ZNodeMessage::addAttributeChangedCallback(m_node, countEvaluation, this, &status);
    ASSERT_TRUE(status);
}

// The node type is the test's own: other tests of the program load the
// plug-in, which registers it again.
inline void TypeNodeTest::TearDown() {
    ZMessage::removeCallback(m_callback);
    ZFileIO::newFile(true);
    oz::NodeTypeRegistry::instance().deregisterType(ZString(fontNode::kTypeName));
}

inline void TypeNodeTest::countEvaluation(ZNodeMessage::AttributeMessage message, ZPlug&, ZPlug&,
                                          void* self) {
    if (message & ZNodeMessage::kAttributeEval)
        ++static_cast<TypeNodeTest*>(self)->m_evaluations;
}

inline std::size_t TypeNodeTest::glyphDecompositions() const {
    const auto* node = static_cast<const fontNode*>(ZFnDependencyNode(m_node).userNode());
    return node->evaluation().glyphDecompositions();
}

inline void TypeNodeTest::setTriple(const ZObject& attribute, double x, double y, double z) {
    ZFnNumericData triple;
    const ZObject data = triple.create(ZFnNumericData::k3Double);
    ASSERT_TRUE(triple.setData3Double(x, y, z));
    ASSERT_TRUE(plug(attribute).setValue(data));
}

inline std::vector<double> TypeNodeTest::doubles(const ZObject& attribute) const {
    return detail::arrayOf<ZFnDoubleArrayData, ZDoubleArray>(plug(attribute)).asVector();
}

inline std::vector<int> TypeNodeTest::ints(const ZObject& attribute) const {
    return detail::arrayOf<ZFnIntArrayData, ZIntArray>(plug(attribute)).asVector();
}

inline std::vector<ZVector> TypeNodeTest::vectors(const ZObject& attribute) const {
    return detail::arrayOf<ZFnVectorArrayData, ZVectorArray>(plug(attribute)).asVector();
}

inline ZFnMesh TypeNodeTest::mesh() const {
    ZObject data;
    EXPECT_TRUE(plug(fontNode::outputMesh).getValue(data));
    return ZFnMesh(data);
}

inline std::vector<ZPoint> TypeNodeTest::meshPoints() const {
    ZPointArray points;
    mesh().getPoints(points);
    return points.asVector();
}

} // namespace type::testing
