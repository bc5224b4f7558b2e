#include "NodesScene.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZFnDependencyNode.h>

namespace nodestest {
namespace {

using DagPath = NodesTest;

TEST_F(DagPath, ShapeMadeAloneGetsATransformAndPathsNameTheChain) {
    const ZObject group = createDag("transform", "group");
    const ZObject shape = createDag("mesh", "lonely");
    ZFnDagNode shapeFn(shape);
    ASSERT_EQ(shapeFn.parentCount(), 1u);
    const ZObject transform = shapeFn.parent(0);
    EXPECT_TRUE(transform.hasFn(ZFn::kTransform));
    ASSERT_TRUE(ZFnDagNode(group).addChild(transform));

    const ZDagPath path = shapeFn.dagPath();
    EXPECT_EQ(path.length(), 3u);
    EXPECT_EQ(path.fullPathName(), ZString("|group|") + ZFnDependencyNode(transform).name() + "|lonely");
    EXPECT_EQ(path.partialPathName(), ZString("lonely"));
    EXPECT_TRUE(path.node() == shape);
    EXPECT_TRUE(path.transform() == transform);
    EXPECT_EQ(ZFnDagNode(group).childCount(), 1u);
}

TEST_F(DagPath, ExtendToShapeNeedsExactlyOneShape) {
    const ZObject transform = createDag("transform", "t");
    ZDagPath path;
    ASSERT_TRUE(ZDagPath::getAPathTo(transform, path));
    EXPECT_FALSE(path.extendToShape()) << "no shape below";

    const ZObject shape = createDag("mesh", "tShape", transform);
    createDag("transform", "sub", transform);
    ASSERT_TRUE(path.extendToShape()) << "a child transform is not a shape";
    EXPECT_TRUE(path.node() == shape);
    EXPECT_TRUE(path.extendToShape()) << "a path to a shape stays";
    EXPECT_EQ(path.length(), 2u);

    createDag("mesh", "tShape2", transform);
    ZDagPath again;
    ZDagPath::getAPathTo(transform, again);
    EXPECT_FALSE(again.extendToShape()) << "two shapes are ambiguous";
    EXPECT_FALSE(ZDagPath::getAPathTo(createNode("groupId"), again)) << "not in the DAG";
}

TEST_F(DagPath, InclusiveAndExclusiveMatricesOfAShape) {
    const ZObject top = createDag("transform", "top");
    const ZObject t = createDag("transform", "t", top);
    const ZObject shape = createDag("mesh", "tShape", t);
    setTriple(top, "translate", 10, 0, 0);
    setTriple(t, "scale", 1, 3, 1);

    ZDagPath toShape, toTransform;
    ZDagPath::getAPathTo(shape, toShape);
    ZDagPath::getAPathTo(t, toTransform);
    EXPECT_EQ(ZPoint(0, 1, 0) * toShape.inclusiveMatrix(), ZPoint(10, 3, 0));
    EXPECT_TRUE(toShape.inclusiveMatrix() == toShape.exclusiveMatrix()) << "a shape adds no transformation";
    EXPECT_EQ(ZPoint(0, 1, 0) * toTransform.exclusiveMatrix(), ZPoint(10, 1, 0));
    EXPECT_EQ(ZPoint(10, 3, 0) * toShape.inclusiveMatrixInverse(), ZPoint(0, 1, 0));
}

TEST_F(DagPath, PathsGoStaleWhenTheHierarchyChanges) {
    const ZObject a = createDag("transform", "a");
    const ZObject b = createDag("transform", "b", a);
    ZDagPath path;
    ZDagPath::getAPathTo(b, path);
    EXPECT_TRUE(path.isValid());

    ASSERT_TRUE(ZFnDagNode(b).setObject(path));
    ASSERT_TRUE(ZFnDagNode(a).removeChild(b));
    EXPECT_FALSE(path.isValid());
    ZStatus status;
    path.fullPathName(&status);
    EXPECT_FALSE(status);
    ZDagPath::getAPathTo(b, path);
    EXPECT_EQ(path.fullPathName(), ZString("|b"));

    oz::Graph::instance().clear();
    EXPECT_FALSE(path.isValid()) << "deleted nodes end the path";
    EXPECT_TRUE(path.node().isNull());
}

} // namespace
} // namespace nodestest
