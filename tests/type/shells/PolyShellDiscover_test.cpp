#include "shells/PolyShellDiscover.h"

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZPointArray.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

// The shell walk over mesh data of the runtime, through its vertex iterator.
namespace {

using ::testing::ElementsAre;

std::vector<int> ids(const ZIntArray& array) {
    return {array.begin(), array.end()};
}

// Two quads sharing the edge 1-4 (faces 0 and 1) and, apart, a triangle
// (face 2) raised to z = 2.
class PolyShellDiscover : public ::testing::Test {
protected:
    void SetUp() override {
        const ZPointArray points{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0},
                                 {2, 1, 0}, {5, 5, 2}, {6, 5, 2}, {5, 6, 2}};
        const ZIntArray counts{4, 4, 3};
        const ZIntArray connects{0, 1, 4, 3, 1, 2, 5, 4, 6, 7, 8};
        data = ZFnMeshData().create();
        ZStatus status;
        ZFnMesh().create(9, 3, points, counts, connects, data, &status);
        ASSERT_TRUE(status);
    }

    ZObject data;
};

TEST_F(PolyShellDiscover, WalksOnePieceOfTheMeshAndBoundsIt) {
    ZItMeshVertex vertices(data);
    ZIntArray shell;
    ZBoundingBox box;
    ASSERT_TRUE(type::polyShellDiscover(vertices, ZIntArray{7}, shell, box));
    EXPECT_THAT(ids(shell), ElementsAre(7, 6, 8));
    EXPECT_EQ(box.min(), ZPoint(5, 5, 2));
    EXPECT_EQ(box.max(), ZPoint(6, 6, 2));

    ASSERT_TRUE(type::polyShellDiscover(vertices, ZIntArray{0}, shell, box));
    EXPECT_EQ(shell.length(), 6u);
    EXPECT_EQ(shell[0], 0);
    EXPECT_EQ(box.min(), ZPoint(0, 0, 0));
}

TEST_F(PolyShellDiscover, FaceSetCollectsTheFacesOfEveryShellWalked) {
    ZItMeshVertex vertices(data);
    ZIntArray shell;
    ZBoundingBox box;
    type::BitSet faces(3);
    ASSERT_TRUE(type::polyShellDiscover(vertices, ZIntArray{8}, shell, box, &faces));
    EXPECT_FALSE(faces.test(0));
    EXPECT_TRUE(faces.test(2));
    ASSERT_TRUE(type::polyShellDiscover(vertices, ZIntArray{5}, shell, box, &faces));
    EXPECT_TRUE(faces.test(0));
    EXPECT_TRUE(faces.test(1));
    EXPECT_TRUE(faces.test(2));
}

// The seed equal to the vertex count passes the seed test; the iterator then
// refuses the vertex and the walk fails without reading past the mesh.
TEST_F(PolyShellDiscover, SeedEqualToTheVertexCountFailsAtTheIterator) {
    ZItMeshVertex vertices(data);
    ZIntArray shell;
    ZBoundingBox box;
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(type::polyShellDiscover(vertices, ZIntArray{9}, shell, box));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_THAT(ids(shell), ElementsAre(9));
}

TEST_F(PolyShellDiscover, SeedAboveTheVertexCountIsReported) {
    ZItMeshVertex vertices(data);
    ZIntArray shell{1, 2};
    ZBoundingBox box;
    type::BitSet faces(3);
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(type::polyShellDiscover(vertices, ZIntArray{10}, shell, box, &faces));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Bad start face in polyShellDiscover: 10\n");
    EXPECT_EQ(shell.length(), 0u);
}

} // namespace
