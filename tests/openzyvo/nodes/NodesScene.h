#pragma once

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <gtest/gtest.h>
#include <initializer_list>

// Scenes and meshes the node tests share, built through the public API.
namespace nodestest {

// Every test starts and ends with an empty scene.
class NodesTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

ZObject createNode(const char* type, const char* name = "");
// A DAG node under `parent` (a shape without one gets a new transform).
ZObject createDag(const char* type, const char* name = "", const ZObject& parent = ZObject::kNullObj);
// "node.attr[1].child" of a node made earlier.
ZPlug plug(const char* fullName);
ZPlug plug(const ZObject& node, const char* path);
void connect(const ZPlug& source, const ZPlug& destination);
void setTriple(const ZObject& node, const char* attribute, double x, double y, double z);

// `count` unit squares side by side along x in z = 0 (face f spans x in [f, f + 1]); vertices are
// shared between neighbours.
ZObject quadStrip(int count);
// Adds an object group of faces to mesh data.
void addFaceGroup(const ZObject& meshData, unsigned int id, std::initializer_list<int> faces);
ZPointArray points(const ZObject& meshOrShape, ZSpace::Space space = ZSpace::kObject);
ZMatrix matrixOf(const ZPlug& matrixPlug);

} // namespace nodestest
