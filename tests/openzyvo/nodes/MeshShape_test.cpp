#include "NodesScene.h"
#include "data/MeshData.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZPxNode.h>

namespace nodestest {
namespace {

using MeshShape = NodesTest;

oz::MeshTarget& targetOf(const ZObject& shape) {
    auto* target = dynamic_cast<oz::MeshTarget*>(ZFnDependencyNode(shape).userNode());
    EXPECT_NE(target, nullptr);
    return *target;
}

TEST_F(MeshShape, OutMeshPassesInMeshThroughAndWorldMeshPlacesIt) {
    const ZObject transform = createDag("transform", "t");
    const ZObject shape = createDag("mesh", "tShape", transform);
    const ZObject mesh = quadStrip(2);
    ASSERT_TRUE(plug(shape, "inMesh").setValue(mesh));
    setTriple(transform, "translate", 0, 0, 4);
    setTriple(transform, "scale", 2, 1, 1);

    EXPECT_TRUE(plug(shape, "outMesh").asZObject() == mesh);
    const ZPointArray world = points(plug(shape, "worldMesh[0]").asZObject());
    ASSERT_EQ(world.length(), 6u);
    EXPECT_EQ(world[4], ZPoint(4, 0, 4));
    EXPECT_EQ(points(mesh)[4], ZPoint(2, 0, 0)) << "the world mesh is a copy";

    setTriple(transform, "translate", 0, 0, 0);
    EXPECT_EQ(points(plug(shape, "worldMesh[0]").asZObject())[4], ZPoint(4, 0, 0));
}

TEST_F(MeshShape, WithoutInputTheWorldMeshIsEmpty) {
    const ZObject shape = createDag("mesh", "emptyShape");
    EXPECT_TRUE(plug(shape, "outMesh").asZObject().isNull());
    EXPECT_TRUE(plug(shape, "worldMesh[0]").asZObject().isNull());
}

TEST_F(MeshShape, EditsGoIntoACopyOfTheStoredMeshAndReachTheOutputs) {
    const ZObject shape = createDag("mesh", "edited");
    const ZObject mesh = quadStrip(1);
    ASSERT_TRUE(plug(shape, "inMesh").setValue(mesh));
    plug(shape, "worldMesh[0]").asZObject();

    oz::MeshTarget& target = targetOf(shape);
    oz::MeshData* stored = target.meshForWrite();
    ASSERT_NE(stored, nullptr);
    ASSERT_EQ(stored->mesh.setPoint(0, {0, 0, -3}), oz::mesh::Status::Success);
    target.meshEdited(oz::MeshTarget::Edit::kPoints);

    EXPECT_EQ(points(plug(shape, "worldMesh[0]").asZObject())[0], ZPoint(0, 0, -3));
    EXPECT_EQ(points(mesh)[0], ZPoint(0, 0, 0)) << "the value that was set stays as it was";
    EXPECT_EQ(target.meshForRead(), stored);
}

TEST_F(MeshShape, AConnectedShapeRefusesEdits) {
    const ZObject source = createDag("mesh", "source");
    const ZObject shape = createDag("mesh", "driven");
    ASSERT_TRUE(plug(source, "inMesh").setValue(quadStrip(1)));
    connect(plug(source, "outMesh"), plug(shape, "inMesh"));
    EXPECT_EQ(targetOf(shape).meshForWrite(), nullptr);
    EXPECT_NE(targetOf(shape).meshForRead(), nullptr);
}

TEST_F(MeshShape, FunctionSetsWorkOnTheShapeNode) {
    const ZObject transform = createDag("transform", "built");
    const ZPointArray square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    ZStatus status;
    ZFnMesh fn;
    const ZObject shape = fn.create(4, 1, square, ZIntArray{4}, ZIntArray{0, 1, 2, 3}, transform, &status);
    ASSERT_TRUE(status);
    ASSERT_FALSE(shape.isNull());
    setTriple(transform, "translate", 5, 0, 0);

    ZFnMesh onShape(shape);
    EXPECT_EQ(onShape.numPolygons(), 1);
    ZPoint corner;
    ASSERT_TRUE(onShape.getPoint(1, corner, ZSpace::kWorld));
    EXPECT_EQ(corner, ZPoint(6, 0, 0));
    EXPECT_EQ(points(plug(shape, "outMesh").asZObject())[2], ZPoint(1, 1, 0));
}

} // namespace
} // namespace nodestest
