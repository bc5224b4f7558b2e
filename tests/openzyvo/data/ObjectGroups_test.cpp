#include "MeshFixtures.h"
#include "data/Data.h"

#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

ZObject component(ZFn::Type kind, const ZIntArray& ids) {
    ZFnSingleIndexedComponent fn;
    const ZObject made = fn.create(kind);
    fn.addElements(ids);
    return made;
}

ZIntArray members(const ZObject& component) {
    ZIntArray ids;
    ZFnSingleIndexedComponent(component).getElements(ids);
    return ids;
}

} // namespace

TEST(ObjectGroups, AddRemoveAndIdsByIndexFollowInsertionOrder) {
    const ZObject data = fixtures::cube();
    ZFnMeshData fn(data);
    EXPECT_TRUE(data.hasFn(ZFn::kGeometryData));
    EXPECT_EQ(fn.objectGroupCount(), 0u);

    for (const unsigned int id : {7u, 2u, 40u, 3u})
        ASSERT_TRUE(fn.addObjectGroup(id));
    EXPECT_EQ(fn.addObjectGroup(2), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.objectGroupCount(), 4u);
    EXPECT_EQ(fn.objectGroup(0), 7u);
    EXPECT_EQ(fn.objectGroup(2), 40u);

    // Dropping every group from index 2 on, from the back, as a rebuild of per-part groups does.
    for (unsigned int i = fn.objectGroupCount(); i-- > 2;)
        ASSERT_TRUE(fn.removeObjectGroup(fn.objectGroup(i)));
    EXPECT_EQ(fn.objectGroupCount(), 2u);
    EXPECT_TRUE(fn.hasObjectGroup(2));
    EXPECT_FALSE(fn.hasObjectGroup(40));
    EXPECT_EQ(fn.removeObjectGroup(40), ZStatus::kNotFound);

    ZStatus status;
    fn.objectGroup(2, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
}

TEST(ObjectGroups, ComponentsRoundTripByIdAsCopies) {
    ZFnGeometryData fn(fixtures::cube());
    fn.addObjectGroup(1);
    fn.addObjectGroup(2);

    ZStatus status;
    EXPECT_TRUE(fn.objectGroupComponent(1, &status).isNull());
    EXPECT_TRUE(status);
    EXPECT_EQ(fn.objectGroupType(1), ZFn::kInvalid);

    const ZObject caps = component(ZFn::kMeshPolygonComponent, ZIntArray{0, 1});
    ASSERT_TRUE(fn.setObjectGroupComponent(1, caps));
    ASSERT_TRUE(fn.setObjectGroupComponent(2, component(ZFn::kMeshVertComponent, ZIntArray{4, 5, 6, 7})));
    ZFnSingleIndexedComponent(caps).addElement(5);

    EXPECT_EQ(members(fn.objectGroupComponent(1)), (ZIntArray{0, 1}));
    EXPECT_EQ(fn.objectGroupType(1), ZFn::kMeshPolygonComponent);
    EXPECT_EQ(fn.objectGroupType(2), ZFn::kMeshVertComponent);

    ZFnSingleIndexedComponent readBack(fn.objectGroupComponent(2));
    readBack.addElement(0);
    EXPECT_EQ(members(fn.objectGroupComponent(2)).length(), 4u);
}

TEST(ObjectGroups, AddingAndRemovingMembers) {
    ZFnGeometryData fn(fixtures::cube());
    fn.addObjectGroup(9);
    ASSERT_TRUE(fn.addObjectGroupComponent(9, component(ZFn::kMeshPolygonComponent, ZIntArray{4})));
    ASSERT_TRUE(fn.addObjectGroupComponent(9, component(ZFn::kMeshPolygonComponent, ZIntArray{1, 2})));
    EXPECT_EQ(members(fn.objectGroupComponent(9)), (ZIntArray{1, 2, 4}));

    EXPECT_EQ(fn.addObjectGroupComponent(9, component(ZFn::kMeshVertComponent, ZIntArray{0})),
              ZStatus::kInvalidParameter);
    ASSERT_TRUE(fn.removeObjectGroupComponent(9, component(ZFn::kMeshPolygonComponent, ZIntArray{2, 5})));
    EXPECT_EQ(members(fn.objectGroupComponent(9)), (ZIntArray{1, 4}));
}

TEST(ObjectGroups, RefusesMembersTheMeshDoesNotHaveAndUnknownIds) {
    ZFnGeometryData fn(fixtures::cube());
    fn.addObjectGroup(1);
    EXPECT_EQ(fn.setObjectGroupComponent(1, component(ZFn::kMeshPolygonComponent, ZIntArray{6})),
              ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.setObjectGroupComponent(1, component(ZFn::kMeshVertComponent, ZIntArray{8})),
              ZStatus::kInvalidParameter);
    EXPECT_TRUE(fn.setObjectGroupComponent(1, component(ZFn::kMeshEdgeComponent, ZIntArray{11})));
    EXPECT_EQ(fn.setObjectGroupComponent(1, ZObject()), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.setObjectGroupComponent(5, component(ZFn::kMeshVertComponent, ZIntArray{0})),
              ZStatus::kNotFound);

    ZStatus status;
    fn.objectGroupComponent(5, &status);
    EXPECT_EQ(status, ZStatus::kNotFound);
    EXPECT_EQ(ZFnGeometryData().addObjectGroup(1), ZStatus::kInvalidParameter);
}

TEST(ObjectGroups, CopiesOfMeshDataKeepIndependentGroups) {
    const ZObject original = fixtures::cube();
    ZFnMeshData fn(original);
    fn.addObjectGroup(1);
    fn.setObjectGroupComponent(1, component(ZFn::kMeshPolygonComponent, ZIntArray{0, 1}));

    const ZObject copied = ZFnMeshData().create();
    ZFnMesh().copy(original, copied);
    const ZObject cloned = oz::ObjectAccess::wrap(oz::ObjectAccess::as<oz::Data>(original)->clone());

    fn.addObjectGroupComponent(1, component(ZFn::kMeshPolygonComponent, ZIntArray{5}));
    fn.addObjectGroup(2);
    ZFnMesh(original).setPoint(0, ZPoint(-1, -1, -1));

    for (const ZObject& copy : {copied, cloned}) {
        ZFnMeshData groups(copy);
        EXPECT_EQ(groups.objectGroupCount(), 1u);
        EXPECT_EQ(members(groups.objectGroupComponent(1)), (ZIntArray{0, 1}));
        ZPoint p;
        ZFnMesh(copy).getPoint(0, p);
        EXPECT_EQ(p, ZPoint(0, 0, 0));
        EXPECT_EQ(ZFnMesh(copy).numPolygons(), 6);
    }
}

TEST(ObjectGroups, EditsOfACloneNeverReachTheOriginal) {
    const ZObject original = fixtures::cube();
    ZFnMeshData(original).addObjectGroup(1);
    ZFnMeshData(original).setObjectGroupComponent(1, component(ZFn::kMeshVertComponent, ZIntArray{0, 1, 2}));
    ZFnMeshData(original).addObjectGroup(2);

    const auto clone = [&] {
        return oz::ObjectAccess::wrap(oz::ObjectAccess::as<oz::Data>(original)->clone());
    };
    const std::vector<std::function<ZStatus(const ZObject&)>> edits = {
        [](const ZObject& c) {
            return ZFnMeshData(c).addObjectGroupComponent(1,
                                                          component(ZFn::kMeshVertComponent, ZIntArray{7}));
        },
        [](const ZObject& c) {
            return ZFnMeshData(c).removeObjectGroupComponent(
                1, component(ZFn::kMeshVertComponent, ZIntArray{0}));
        },
        [](const ZObject& c) {
            return ZFnMeshData(c).setObjectGroupComponent(2,
                                                          component(ZFn::kMeshVertComponent, ZIntArray{4}));
        },
        [](const ZObject& c) { return ZFnMeshData(c).removeObjectGroup(1); },
        [](const ZObject& c) { return ZFnMeshData(c).addObjectGroup(3); },
        [](const ZObject& c) { return ZFnMesh(c).setPoint(0, ZPoint(-1, -1, -1)); },
    };
    for (const auto& edit : edits) {
        ASSERT_TRUE(edit(clone()));
        ZFnMeshData groups(original);
        EXPECT_EQ(groups.objectGroupCount(), 2u);
        EXPECT_EQ(members(groups.objectGroupComponent(1)), (ZIntArray{0, 1, 2}));
        EXPECT_TRUE(groups.objectGroupComponent(2).isNull());
        ZPoint p;
        ZFnMesh(original).getPoint(0, p);
        EXPECT_EQ(p, ZPoint(0, 0, 0));
    }
}
