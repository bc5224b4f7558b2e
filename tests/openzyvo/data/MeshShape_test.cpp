#include "MeshFixtures.h"
#include "data/MeshData.h"
#include "data/MeshShapeCreator.h"

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZItMeshPolygon.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace {

// Stands in for the mesh shape node: shows one mesh data value, has a world matrix and records
// what the function sets report having changed.
class FakeShape final : public oz::Object, public oz::MeshTarget {
public:
    ZFn::Type apiType() const override { return ZFn::kMesh; }
    bool hasFn(ZFn::Type type) const override {
        return type == ZFn::kMesh || type == ZFn::kShape || type == ZFn::kDagNode || Object::hasFn(type);
    }
    const oz::MeshData* meshForRead() override { return data.get(); }
    oz::MeshData* meshForWrite() override { return data.get(); }
    void meshEdited(Edit edit) override { edits.push_back(edit); }
    ZMatrix worldMatrix() const override { return world; }

    std::shared_ptr<oz::MeshData> data = std::make_shared<oz::MeshData>();
    ZMatrix world;
    std::vector<Edit> edits;
};

// x scaled by 2, then moved by (10, 0, 0).
ZMatrix scaleAndMove() {
    ZMatrix m;
    m(0, 0) = 2.0;
    m(3, 0) = 10.0;
    return m;
}

std::shared_ptr<FakeShape> lastCreated;

ZObject createFakeShape(const ZObject&, ZStatus& status) {
    lastCreated = std::make_shared<FakeShape>();
    status = ZStatus::kSuccess;
    return oz::ObjectAccess::wrap(lastCreated);
}

class MeshShape : public ::testing::Test {
protected:
    // The runtime installs the real shape creator at start; these tests run without it.
    void SetUp() override {
        installedCreator = oz::meshShapeCreator();
        oz::setMeshShapeCreator(nullptr);
        shape->world = scaleAndMove();
        ZFnMesh().copy(fixtures::cube(), shapeObject);
        shape->edits.clear();
    }
    void TearDown() override {
        oz::setMeshShapeCreator(installedCreator);
        lastCreated.reset();
    }

    oz::MeshShapeCreator installedCreator = nullptr;
    std::shared_ptr<FakeShape> shape = std::make_shared<FakeShape>();
    ZObject shapeObject = oz::ObjectAccess::wrap(shape);
};

} // namespace

TEST_F(MeshShape, WorldSpaceUsesTheShapesMatrix) {
    ZFnMesh mesh(shapeObject);
    ZPoint p;
    ASSERT_TRUE(mesh.getPoint(6, p, ZSpace::kWorld));
    EXPECT_EQ(p, ZPoint(12, 1, 1));
    ASSERT_TRUE(mesh.getPoint(6, p, ZSpace::kObject));
    EXPECT_EQ(p, ZPoint(1, 1, 1));

    ASSERT_TRUE(mesh.setPoint(0, ZPoint(14, 0, 0), ZSpace::kWorld));
    mesh.getPoint(0, p);
    EXPECT_EQ(p, ZPoint(2, 0, 0));
    EXPECT_EQ(shape->edits, std::vector<oz::MeshTarget::Edit>{oz::MeshTarget::Edit::kPoints});
}

TEST_F(MeshShape, NormalsStayPerpendicularUnderNonUniformScale) {
    const ZObject data = ZFnMeshData().create();
    ZFnMesh().addPolygon(ZPointArray{{0, 0, 0}, {1, -1, 0}, {1, -1, 1}, {0, 0, 1}}, false, 0.0, data);
    ZFnMesh().copy(data, shapeObject);
    ZFnMesh mesh(shapeObject);

    ZVector normal;
    ASSERT_TRUE(mesh.getPolygonNormal(0, normal, ZSpace::kWorld));
    ZPointArray world;
    mesh.getPoints(world, ZSpace::kWorld);
    EXPECT_NEAR(normal * (world[1] - world[0]), 0.0, 1e-12);
    EXPECT_NEAR(normal.length(), 1.0, 1e-12);
}

TEST_F(MeshShape, DeformerPassAndRaysInWorldSpace) {
    ZItGeometry it(shapeObject);
    ZPointArray points;
    ASSERT_TRUE(it.allPositions(points, ZSpace::kWorld));
    EXPECT_EQ(points[1], ZPoint(12, 0, 0));
    for (ZPoint& p : points)
        p.y += 1.0;
    ASSERT_TRUE(it.setAllPositions(points, ZSpace::kWorld));
    EXPECT_EQ(shape->data->mesh.point(1)->y, 1.0);

    ZFloatPoint hit;
    float param = 0.0f;
    int face = -1;
    ASSERT_TRUE(ZFnMesh(shapeObject)
                    .closestIntersection({11, 1.5f, 5}, {0, 0, -1}, nullptr, nullptr, false, ZSpace::kWorld,
                                         1e8f, false, nullptr, hit, &param, &face, nullptr, nullptr,
                                         nullptr));
    EXPECT_EQ(face, 1);
    EXPECT_FLOAT_EQ(param, 4.0f);
    EXPECT_TRUE(hit.isEquivalent(ZFloatPoint(11, 1.5f, 1)));
}

TEST_F(MeshShape, EditsAreReportedByKind) {
    ZFnMesh mesh(shapeObject);
    mesh.setVertexColor(ZColor(1, 0, 0), 0);
    mesh.addPolygon(fixtures::square(5, 5, 1), false);
    ZItMeshPolygon faces(shapeObject);
    EXPECT_EQ(faces.count(), 7);
    EXPECT_EQ(shape->edits, (std::vector<oz::MeshTarget::Edit>{oz::MeshTarget::Edit::kAttributes,
                                                               oz::MeshTarget::Edit::kTopology}));

    // A failed edit reports nothing.
    mesh.setPoint(99, ZPoint());
    EXPECT_EQ(shape->edits.size(), 2u);
}

TEST_F(MeshShape, BuildingWithoutMeshDataMakesAShapeThroughTheInstalledCreator) {
    ZStatus status;
    ZFnMesh mesh;
    mesh.create(4, 1, fixtures::square(0, 0, 1), ZIntArray{4}, ZIntArray{0, 1, 2, 3}, ZObject(), &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    oz::setMeshShapeCreator(createFakeShape);
    const ZObject made =
        mesh.create(4, 1, fixtures::square(0, 0, 1), ZIntArray{4}, ZIntArray{0, 1, 2, 3}, ZObject(), &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(made.apiType(), ZFn::kMesh);
    EXPECT_EQ(lastCreated->data->mesh.faceCount(), 1);
    EXPECT_EQ(lastCreated->edits, std::vector<oz::MeshTarget::Edit>{oz::MeshTarget::Edit::kTopology});
}
