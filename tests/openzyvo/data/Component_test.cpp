#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <gtest/gtest.h>

namespace {

ZObject faces(const ZIntArray& ids) {
    ZFnSingleIndexedComponent fn;
    const ZObject component = fn.create(ZFn::kMeshPolygonComponent);
    fn.addElements(ids);
    return component;
}

} // namespace

TEST(SingleIndexedComponent, ElementsAreASetReadBackAscending) {
    ZFnSingleIndexedComponent fn;
    ZStatus status;
    const ZObject component = fn.create(ZFn::kMeshVertComponent, &status);
    ASSERT_TRUE(status);
    EXPECT_TRUE(component.hasFn(ZFn::kComponent));
    EXPECT_TRUE(component.hasFn(ZFn::kSingleIndexedComponent));
    EXPECT_EQ(component.apiType(), ZFn::kMeshVertComponent);

    fn.addElement(5);
    fn.addElements(ZIntArray{9, 1, 5, 3});
    fn.addElement(2);
    ZIntArray elements;
    ASSERT_TRUE(fn.getElements(elements));
    EXPECT_EQ(elements, (ZIntArray{1, 2, 3, 5, 9}));
    EXPECT_EQ(fn.elementCount(), 5);
    EXPECT_EQ(fn.element(3), 5);
    EXPECT_EQ(fn.componentType(), ZFn::kMeshVertComponent);
}

// Lists handed over in order skip the sort; they must still merge with the members already held
// and lose their repeats.
TEST(SingleIndexedComponent, ListsInOrderMergeWithTheMembersHeld) {
    ZFnSingleIndexedComponent fn;
    fn.create(ZFn::kMeshPolygonComponent);
    fn.addElements(ZIntArray{1, 4, 7});
    fn.addElements(ZIntArray{4, 5, 6});
    fn.addElements(ZIntArray{8, 9, 9});
    fn.addElements(ZIntArray{});
    fn.addElements(ZIntArray{10, 11});
    ZIntArray elements;
    ASSERT_TRUE(fn.getElements(elements));
    EXPECT_EQ(elements, (ZIntArray{1, 4, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(SingleIndexedComponent, BadKindsIdsAndIndicesFail) {
    ZFnSingleIndexedComponent fn;
    ZStatus status;
    EXPECT_TRUE(fn.create(ZFn::kMeshData, &status).isNull());
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.addElement(0), ZStatus::kInvalidParameter);

    fn.create(ZFn::kMeshEdgeComponent);
    EXPECT_EQ(fn.addElement(-1), ZStatus::kInvalidParameter);
    EXPECT_EQ(fn.addElements(ZIntArray{1, -2}), ZStatus::kInvalidParameter);
    EXPECT_TRUE(fn.isEmpty());
    fn.element(0, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
}

TEST(SingleIndexedComponent, EqualityIgnoresFillOrderButNotKind) {
    const ZObject a = faces(ZIntArray{3, 1, 2});
    const ZObject b = faces(ZIntArray{1, 2, 3});
    ZFnSingleIndexedComponent vertices;
    const ZObject c = vertices.create(ZFn::kMeshVertComponent);
    vertices.addElements(ZIntArray{1, 2, 3});

    EXPECT_TRUE(ZFnSingleIndexedComponent(a).isEqual(b));
    EXPECT_FALSE(ZFnSingleIndexedComponent(a).isEqual(c));
}

TEST(ComponentListData, KeepsCopiesInOrder) {
    ZFnComponentListData list;
    const ZObject data = list.create();
    EXPECT_EQ(data.apiType(), ZFn::kComponentListData);

    ZFnSingleIndexedComponent caps;
    const ZObject capFaces = caps.create(ZFn::kMeshPolygonComponent);
    caps.addElements(ZIntArray{0, 1});
    ASSERT_TRUE(list.add(capFaces));
    ASSERT_TRUE(list.add(faces(ZIntArray{2, 3, 4})));
    EXPECT_EQ(list.length(), 2u);

    // Later edits of the added component, or of one read back (appended or merged into the ids
    // held), do not reach the list.
    caps.addElement(7);
    ZFnSingleIndexedComponent first(list[0]);
    first.addElement(8);
    ZFnSingleIndexedComponent second(list[1]);
    second.addElements(ZIntArray{1, 3, 5});
    EXPECT_EQ(second.elementCount(), 5);
    EXPECT_EQ(ZFnSingleIndexedComponent(list[0]).elementCount(), 2);
    EXPECT_EQ(ZFnSingleIndexedComponent(list[1]).elementCount(), 3);
    EXPECT_EQ(ZFnSingleIndexedComponent(list[1]).element(2), 4);
    EXPECT_TRUE(list[2].isNull());
}

TEST(ComponentListData, HasRemoveAndClear) {
    ZFnComponentListData list;
    list.create();
    list.add(faces(ZIntArray{0, 1, 2}));

    EXPECT_TRUE(list.has(faces(ZIntArray{1, 2})));
    EXPECT_FALSE(list.has(faces(ZIntArray{2, 3})));
    ZFnSingleIndexedComponent vertices;
    const ZObject sameIdsOtherKind = vertices.create(ZFn::kMeshVertComponent);
    vertices.addElement(1);
    EXPECT_FALSE(list.has(sameIdsOtherKind));

    EXPECT_EQ(list.add(ZObject()), ZStatus::kInvalidParameter);
    EXPECT_EQ(list.remove(1), ZStatus::kInvalidParameter);
    EXPECT_TRUE(list.remove(0));
    list.add(faces(ZIntArray{4}));
    EXPECT_TRUE(list.clear());
    EXPECT_EQ(list.length(), 0u);
}
