#include "NodesScene.h"

#include "graph/Graph.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnMatrixData.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>

namespace nodestest {

void NodesTest::SetUp() {
    oz::Graph::instance().clear();
}

void NodesTest::TearDown() {
    oz::Graph::instance().clear();
}

ZObject createNode(const char* type, const char* name) {
    ZStatus status;
    ZObject node = ZFnDependencyNode().create(ZString(type), ZString(name), &status);
    EXPECT_TRUE(status) << "creating a " << type;
    return node;
}

ZObject createDag(const char* type, const char* name, const ZObject& parent) {
    ZStatus status;
    ZObject node = ZFnDagNode().create(ZString(type), ZString(name), parent, &status);
    EXPECT_TRUE(status) << "creating a " << type;
    return node;
}

ZPlug plug(const char* fullName) {
    ZPlug found;
    EXPECT_TRUE(oz::Graph::instance().findPlug(fullName, found)) << fullName;
    return found;
}

ZPlug plug(const ZObject& node, const char* path) {
    return plug((ZFnDependencyNode(node).name() + "." + path).asChar());
}

void connect(const ZPlug& source, const ZPlug& destination) {
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.connect(source, destination))
        << source.name().asChar() << " -> " << destination.name().asChar();
    ASSERT_TRUE(modifier.doIt()) << source.name().asChar() << " -> " << destination.name().asChar();
}

void setTriple(const ZObject& node, const char* attribute, double x, double y, double z) {
    const ZPlug triple = plug(node, attribute);
    ASSERT_TRUE(triple.child(0).setValue(x));
    ASSERT_TRUE(triple.child(1).setValue(y));
    ASSERT_TRUE(triple.child(2).setValue(z));
}

ZObject quadStrip(int count) {
    ZPointArray points;
    for (int x = 0; x <= count; ++x) {
        points.append(ZPoint(x, 0, 0));
        points.append(ZPoint(x, 1, 0));
    }
    ZIntArray counts, connects;
    for (int f = 0; f < count; ++f) {
        counts.append(4);
        for (int v : {2 * f, 2 * f + 2, 2 * f + 3, 2 * f + 1})
            connects.append(v);
    }
    ZObject data = ZFnMeshData().create();
    ZStatus status;
    ZFnMesh().create(static_cast<int>(points.length()), count, points, counts, connects, data, &status);
    EXPECT_TRUE(status);
    return data;
}

void addFaceGroup(const ZObject& meshData, unsigned int id, std::initializer_list<int> faces) {
    ZFnSingleIndexedComponent component;
    const ZObject members = component.create(ZFn::kMeshPolygonComponent);
    for (int face : faces)
        ASSERT_TRUE(component.addElement(face));
    ZFnGeometryData geometry(meshData);
    ASSERT_TRUE(geometry.addObjectGroup(id));
    ASSERT_TRUE(geometry.setObjectGroupComponent(id, members));
}

ZPointArray points(const ZObject& meshOrShape, ZSpace::Space space) {
    ZPointArray out;
    EXPECT_TRUE(ZFnMesh(meshOrShape).getPoints(out, space));
    return out;
}

ZMatrix matrixOf(const ZPlug& matrixPlug) {
    ZStatus status;
    const ZMatrix matrix = ZFnMatrixData(matrixPlug.asZObject()).matrix(&status);
    EXPECT_TRUE(status) << matrixPlug.name().asChar();
    return matrix;
}

} // namespace nodestest
