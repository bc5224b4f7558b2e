#include "NodesScene.h"

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <cmath>
#include <numbers>

namespace nodestest {
namespace {

using Transform = NodesTest;

ZPoint origin(const ZMatrix& m) {
    return ZPoint(0, 0, 0) * m;
}

void expectNear(const ZPoint& a, const ZPoint& b, const char* why = "") {
    EXPECT_NEAR(a.x, b.x, 1e-9) << why;
    EXPECT_NEAR(a.y, b.y, 1e-9) << why;
    EXPECT_NEAR(a.z, b.z, 1e-9) << why;
}

void rotateZ(const ZObject& node, double degrees) {
    ASSERT_TRUE(plug(node, "rotateZ").setValue(ZAngle(degrees, ZAngle::kDegrees)));
}

TEST_F(Transform, WorldMatrixComposesTheParentChain) {
    const ZObject parent = createDag("transform", "parent");
    const ZObject child = createDag("transform", "child", parent);
    setTriple(parent, "translate", 1, 2, 3);
    rotateZ(parent, 90);
    setTriple(child, "translate", 1, 0, 0);
    setTriple(child, "scale", 2, 2, 2);

    expectNear(origin(matrixOf(plug(child, "matrix"))), ZPoint(1, 0, 0));
    const ZMatrix world = matrixOf(plug(child, "worldMatrix[0]"));
    expectNear(origin(world), ZPoint(1, 3, 3));
    expectNear(ZPoint(1, 0, 0) * world, ZPoint(1, 5, 3), "scaled by 2, then turned by the parent");
    EXPECT_TRUE(world.isEquivalent(ZFnDagNode(child).inclusiveMatrix(), 1e-12));
}

TEST_F(Transform, MovingAnAncestorReachesCachedWorldMatricesBelow) {
    const ZObject top = createDag("transform", "top");
    const ZObject middle = createDag("transform", "middle", top);
    const ZObject leaf = createDag("transform", "leaf", middle);
    expectNear(origin(matrixOf(plug(leaf, "worldMatrix[0]"))), ZPoint(0, 0, 0));

    setTriple(top, "translate", 0, 0, 7);
    expectNear(origin(matrixOf(plug(leaf, "worldMatrix[0]"))), ZPoint(0, 0, 7));

    ZFnDagNode(top).removeChild(middle);
    expectNear(origin(matrixOf(plug(leaf, "worldMatrix[0]"))), ZPoint(0, 0, 0), "reparenting dirties too");
    ASSERT_TRUE(ZFnDagNode(top).addChild(middle));
    expectNear(origin(matrixOf(plug(leaf, "worldMatrix[0]"))), ZPoint(0, 0, 7));
}

TEST_F(Transform, ParentingThatWouldMakeACycleIsRefused) {
    const ZObject top = createDag("transform", "top");
    const ZObject below = createDag("transform", "below", top);
    EXPECT_FALSE(ZFnDagNode(below).addChild(top));
    EXPECT_FALSE(ZFnDagNode(top).addChild(top));
    EXPECT_FALSE(ZFnDagNode(top).addChild(createNode("groupId"))) << "not a DAG node";
    EXPECT_TRUE(ZFnDagNode(below).isChildOf(top));
}

TEST_F(Transform, RotateOrderDecidesWhichAxisTurnsFirst) {
    const ZObject node = createDag("transform");
    ASSERT_TRUE(plug(node, "rotateX").setValue(ZAngle(90, ZAngle::kDegrees)));
    rotateZ(node, 90);
    // xyz: about X first, taking +y to +z; Z then leaves it there.
    expectNear(ZPoint(0, 1, 0) * matrixOf(plug(node, "matrix")), ZPoint(0, 0, 1));
    ASSERT_TRUE(plug(node, "rotateOrder").setValue(short(5)));
    // zyx: about Z first, taking +y to -x; X then leaves it there.
    expectNear(ZPoint(0, 1, 0) * matrixOf(plug(node, "matrix")), ZPoint(-1, 0, 0));
    EXPECT_FALSE(plug(node, "rotateOrder").setValue(short(9)));
}

TEST_F(Transform, DynamicAttributesWorkAsOnAnyNode) {
    const ZObject node = createDag("transform", "tool");
    ZFnNumericAttribute fn;
    ASSERT_TRUE(ZFnDependencyNode(node).addAttribute(fn.createPoint("toolPosition", "tp")));
    setTriple(node, "toolPosition", 1, 2, 3);
    EXPECT_EQ(plug(node, "toolPositionY").asDouble(), 2.0);
    expectNear(origin(matrixOf(plug(node, "matrix"))), ZPoint(0, 0, 0));
}

} // namespace
} // namespace nodestest
