#include "NodesScene.h"
#include "TestDeformers.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>

namespace nodestest {
namespace {

class Deformer : public NodesTest {
protected:
    void SetUp() override {
        NodesTest::SetUp();
        registerTestDeformers();
        deformer = createNode(OffsetDeformer::kTypeName, "offset1");
        node = dynamic_cast<OffsetDeformer*>(ZFnDependencyNode(deformer).userNode());
        ASSERT_NE(node, nullptr);
    }

    ZPlug inputGeom(unsigned int index) const {
        return plug(deformer, "input").elementByLogicalIndex(index).child(0);
    }
    ZObject output(unsigned int index) const {
        return plug(deformer, "outputGeom").elementByLogicalIndex(index).asZObject();
    }

    ZObject deformer;
    OffsetDeformer* node = nullptr;
};

void expectLiftedBy(const ZObject& deformed, const ZObject& original, double lift) {
    const ZPointArray moved = points(deformed), before = points(original);
    ASSERT_EQ(moved.length(), before.length());
    for (unsigned int i = 0; i < moved.length(); ++i)
        EXPECT_EQ(moved[i], ZPoint(before[i].x, before[i].y + lift, before[i].z)) << "point " << i;
}

TEST_F(Deformer, EachMultiIndexDeformsItsOwnInputIntoACopy) {
    const ZObject one = quadStrip(1), three = quadStrip(3);
    addFaceGroup(three, 7, {1, 2});
    ASSERT_TRUE(inputGeom(0).setValue(one));
    ASSERT_TRUE(inputGeom(1).setValue(three));
    ASSERT_TRUE(plug(deformer, "offset").setValue(2.0));

    const ZObject out0 = output(0), out1 = output(1);
    expectLiftedBy(out0, one, 2.0);
    expectLiftedBy(out1, three, 4.0);
    EXPECT_EQ(ZFnMesh(out1).numPolygons(), 3);
    EXPECT_TRUE(ZFnGeometryData(out1).hasObjectGroup(7)) << "object groups travel with the copy";
    EXPECT_EQ(points(one)[0], ZPoint(0, 0, 0)) << "the input itself stays where it was";
    ASSERT_EQ(node->calls.size(), 2u);
    EXPECT_EQ(node->calls[0].multiIndex, 0u);
    EXPECT_EQ(node->calls[1].multiIndex, 1u);
}

TEST_F(Deformer, EnvelopeIsTheDeformersToReadEvenAtZero) {
    const ZObject mesh = quadStrip(1);
    ASSERT_TRUE(inputGeom(0).setValue(mesh));
    ASSERT_TRUE(plug(deformer, "envelope").setValue(0.5f));
    expectLiftedBy(output(0), mesh, 0.5);

    ASSERT_TRUE(plug(deformer, "envelope").setValue(0.0f));
    expectLiftedBy(output(0), mesh, 0.0);
    ASSERT_EQ(node->calls.size(), 2u) << "a zero envelope still reaches deform()";
    EXPECT_EQ(node->calls[1].envelope, 0.0f);
    EXPECT_EQ(node->calls[0].envelope, 0.5f);
}

TEST_F(Deformer, NewInputGeometryIsSeenBeforeTheNextDeform) {
    const ZObject first = quadStrip(1), second = quadStrip(2);
    ASSERT_TRUE(inputGeom(0).setValue(first));
    output(0);
    const int dirtiedBefore = node->inputGeomDirtied;

    ASSERT_TRUE(plug(deformer, "offset").setValue(3.0));
    output(0);
    EXPECT_EQ(node->inputGeomDirtied, dirtiedBefore) << "other inputs leave the geometry alone";

    ASSERT_TRUE(inputGeom(0).setValue(second));
    EXPECT_GT(node->inputGeomDirtied, dirtiedBefore);
    EXPECT_EQ(ZFnMesh(output(0)).numPolygons(), 2);
    EXPECT_EQ(node->preEvaluationSawInputGeom, (std::vector<bool>{true, false, true}));

    output(0);
    EXPECT_EQ(node->calls.size(), 3u) << "a clean output is not deformed again";
}

TEST_F(Deformer, FailedDeformPassesTheInputThrough) {
    const ZObject mesh = quadStrip(2);
    ASSERT_TRUE(inputGeom(0).setValue(mesh));
    ASSERT_TRUE(plug(deformer, "fail").setValue(true));
    testing::internal::CaptureStderr();
    const ZObject out = output(0);
    const std::string log = testing::internal::GetCapturedStderr();
    expectLiftedBy(out, mesh, 0.0);
    EXPECT_NE(log.find("offset1"), std::string::npos) << log;
}

TEST_F(Deformer, IdleDeformerOutputEqualsInput) {
    const ZObject idle = createNode(IdleDeformer::kTypeName);
    const ZObject mesh = quadStrip(2);
    ASSERT_TRUE(plug(idle, "input[0].inputGeom").setValue(mesh));
    const ZObject out = plug(idle, "outputGeom[0]").asZObject();
    expectLiftedBy(out, mesh, 0.0);
    EXPECT_FALSE(out == mesh) << "the output is a copy";
    EXPECT_TRUE(plug(idle, "outputGeom[1]").asZObject().isNull()) << "no input, no output";
}

TEST_F(Deformer, LocalToWorldIsTheMatrixOfTheShapeShowingTheOutput) {
    const ZObject transform = createDag("transform", "moved");
    const ZObject shape = createDag("mesh", "movedShape", transform);
    setTriple(transform, "translate", 5, 0, 0);
    ASSERT_TRUE(inputGeom(0).setValue(quadStrip(1)));
    connect(plug(deformer, "outputGeom[0]"), plug(shape, "inMesh"));

    const ZObject shown = plug(shape, "outMesh").asZObject();
    ASSERT_EQ(node->calls.size(), 1u);
    EXPECT_EQ(node->calls[0].localToWorld(3, 0), 5.0);
    EXPECT_EQ(points(shown)[0], ZPoint(0, 1, 0));

    ASSERT_TRUE(plug(deformer, "envelope").setValue(0.0f));
    EXPECT_EQ(points(plug(shape, "worldMesh[0]").asZObject())[0], ZPoint(5, 0, 0))
        << "the shape follows the deformer downstream";
}

// A deformer early in a chain places its geometry where the shape at the
// end of the chain shows it, as the last one does.
TEST_F(Deformer, LocalToWorldReachesThroughAChainOfDeformers) {
    const ZObject transform = createDag("transform", "chained");
    const ZObject shape = createDag("mesh", "chainedShape", transform);
    setTriple(transform, "translate", 0, 0, 7);
    const ZObject idle = createNode(IdleDeformer::kTypeName);
    ASSERT_TRUE(inputGeom(0).setValue(quadStrip(1)));
    connect(plug(deformer, "outputGeom[0]"), plug(idle, "input[0].inputGeom"));
    connect(plug(idle, "outputGeom[0]"), plug(shape, "inMesh"));

    plug(shape, "outMesh").asZObject();
    ASSERT_EQ(node->calls.size(), 1u);
    EXPECT_EQ(node->calls[0].localToWorld(3, 2), 7.0);
}

// Materials bound to object groups of a deformed mesh need the groups, with
// their faces, on the shape at the end of a chain of deformers.
TEST_F(Deformer, ObjectGroupsReachTheShapeThroughAChainOfDeformers) {
    const ZObject mesh = quadStrip(3);
    addFaceGroup(mesh, 4, {0, 2});
    const ZObject idle = createNode(IdleDeformer::kTypeName);
    const ZObject shape = createDag("mesh", "chainedShape");
    ASSERT_TRUE(inputGeom(0).setValue(mesh));
    connect(plug(deformer, "outputGeom[0]"), plug(idle, "input[0].inputGeom"));
    connect(plug(idle, "outputGeom[0]"), plug(shape, "inMesh"));

    const ZObject shown = plug(shape, "outMesh").asZObject();
    ZFnGeometryData geometry(shown);
    ASSERT_TRUE(geometry.hasObjectGroup(4));
    ZFnSingleIndexedComponent faces(geometry.objectGroupComponent(4));
    ZIntArray elements;
    faces.getElements(elements);
    EXPECT_EQ(elements, (ZIntArray{0, 2}));
    EXPECT_EQ(points(shown)[0], ZPoint(0, 1, 0)) << "the points were deformed on the way";
}

} // namespace
} // namespace nodestest
