#include "shells/ShellDiscovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// The shell walk on meshes given as plain adjacency lists.
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Vertex i sits at (i, 0, 0) unless given a position; its star is what the
// lists say. Asking for a vertex the lists do not hold fails, as a host
// iterator does.
struct ListTopology final : type::ShellTopology {
    std::vector<std::vector<int>> neighbours;
    std::vector<std::vector<int>> facesAround;
    std::vector<type::Point3> positions;
    std::vector<int> asked;

    int vertexCount() const override { return static_cast<int>(neighbours.size()); }

    bool star(int vertex, bool withFaces, type::VertexStar& star) override {
        asked.push_back(vertex);
        if (vertex < 0 || vertex >= vertexCount())
            return false;
        const auto at = static_cast<std::size_t>(vertex);
        star.position = at < positions.size() ? positions[at] : type::Point3{double(vertex), 0.0, 0.0};
        star.vertices = neighbours[at];
        star.faces = withFaces && at < facesAround.size() ? facesAround[at] : std::vector<int>{};
        return true;
    }
};

// Two pieces: a square 0-1-2-3 (faces 0 and 1 split along 0-2) and a
// triangle 4-5-6 (face 2).
ListTopology twoPieces() {
    ListTopology mesh;
    mesh.neighbours = {{1, 3, 2}, {0, 2}, {1, 3, 0}, {2, 0}, {5, 6}, {4, 6}, {4, 5}};
    mesh.facesAround = {{0, 1}, {0}, {0, 1}, {1}, {2}, {2}, {2}};
    mesh.positions = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {5, 5, 2}, {6, 5, 2}, {5, 6, 3}};
    return mesh;
}

// A path 0 - 1 - ... - (count - 1).
ListTopology chain(int count) {
    ListTopology mesh;
    mesh.neighbours.resize(static_cast<std::size_t>(count));
    for (int i = 0; i + 1 < count; ++i) {
        mesh.neighbours[static_cast<std::size_t>(i)].push_back(i + 1);
        mesh.neighbours[static_cast<std::size_t>(i + 1)].push_back(i);
    }
    return mesh;
}

struct Walk {
    bool ok = false;
    std::vector<int> shell;
    type::Box3 bounds;
    std::string printed;
};

Walk walk(type::ShellTopology& mesh, std::vector<int> seeds, type::BitSet* faces = nullptr) {
    Walk result;
    ::testing::internal::CaptureStdout();
    result.ok = type::discoverShell(mesh, seeds, result.shell, result.bounds, faces);
    result.printed = ::testing::internal::GetCapturedStdout();
    return result;
}

std::vector<int> setBits(const type::BitSet& set, int size) {
    std::vector<int> ids;
    for (int id = 0; id < size; ++id)
        if (set.test(id))
            ids.push_back(id);
    return ids;
}

TEST(ShellDiscovery, NoSeedsReachNothing) {
    ListTopology mesh = twoPieces();
    type::BitSet faces(3);
    for (type::BitSet* form : {static_cast<type::BitSet*>(nullptr), &faces}) {
        Walk result = walk(mesh, {}, form);
        EXPECT_TRUE(result.ok);
        EXPECT_THAT(result.shell, IsEmpty());
        EXPECT_TRUE(result.bounds.empty());
        EXPECT_EQ(result.printed, "");
    }
    EXPECT_THAT(setBits(faces, 3), IsEmpty());
}

TEST(ShellDiscovery, OnePieceOfTwoInBreadthFirstOrderWithItsBounds) {
    ListTopology mesh = twoPieces();
    Walk square = walk(mesh, {1});
    EXPECT_TRUE(square.ok);
    EXPECT_THAT(square.shell, ElementsAre(1, 0, 2, 3));
    EXPECT_EQ(square.bounds.min.x, 0.0);
    EXPECT_EQ(square.bounds.max.y, 1.0);
    EXPECT_EQ(square.bounds.max.z, 0.0);

    Walk triangle = walk(mesh, {6});
    EXPECT_THAT(triangle.shell, ElementsAre(6, 4, 5));
    EXPECT_EQ(triangle.bounds.min.x, 5.0);
    EXPECT_EQ(triangle.bounds.min.z, 2.0);
    EXPECT_EQ(triangle.bounds.max.z, 3.0);
}

TEST(ShellDiscovery, SeedsInBothPiecesWalkThemSideBySide) {
    ListTopology mesh = twoPieces();
    EXPECT_THAT(walk(mesh, {4, 3}).shell, ElementsAre(4, 3, 5, 6, 2, 0, 1));
}

// A seed listed twice is queued twice; the neighbours it finds are not.
TEST(ShellDiscovery, DuplicateSeedsAreListedTwice) {
    ListTopology mesh = twoPieces();
    Walk result = walk(mesh, {4, 4});
    EXPECT_TRUE(result.ok);
    EXPECT_THAT(result.shell, ElementsAre(4, 4, 5, 6));
}

TEST(ShellDiscovery, SeedAboveTheVertexCountFailsBeforeAnyWalk) {
    ListTopology mesh = twoPieces();
    Walk vertexForm = walk(mesh, {0, 8});
    EXPECT_FALSE(vertexForm.ok);
    EXPECT_EQ(vertexForm.printed, "Bad start face in polyShellDiscover.\n");
    EXPECT_THAT(vertexForm.shell, IsEmpty());
    EXPECT_THAT(mesh.asked, IsEmpty());

    type::BitSet faces(3);
    Walk faceForm = walk(mesh, {0, 8}, &faces);
    EXPECT_FALSE(faceForm.ok);
    EXPECT_EQ(faceForm.printed, "Bad start face in polyShellDiscover: 8\n");
    EXPECT_THAT(setBits(faces, 3), IsEmpty());
}

TEST(ShellDiscovery, NegativeSeedIsABadSeed) {
    ListTopology mesh = twoPieces();
    Walk result = walk(mesh, {-1});
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.printed, "Bad start face in polyShellDiscover.\n");
}

// The seed test is "above the count", so a seed equal to it is queued; the
// walk fails only when the mesh is asked for that vertex, which is then the
// last one listed.
TEST(ShellDiscovery, SeedEqualToTheVertexCountIsQueuedAndFailsWhenTaken) {
    ListTopology mesh = twoPieces();
    Walk result = walk(mesh, {4, 7});
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.printed, "");
    EXPECT_THAT(result.shell, ElementsAre(4, 7));
    EXPECT_THAT(mesh.asked, ElementsAre(4, 7));
}

TEST(ShellDiscovery, NeighbourOutsideTheMeshFailsTheWalkWhenTaken) {
    ListTopology mesh = twoPieces();
    mesh.neighbours[5] = {4, 6, 1 << 30};
    Walk result = walk(mesh, {4});
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.printed, "Error with search face in polyShellDiscover\n");
    EXPECT_THAT(result.shell, ElementsAre(4, 5, 6));
}

TEST(ShellDiscovery, VertexFormGivesUpAfterItsBudgetWithWhatItFound) {
    ListTopology mesh = chain(type::kShellWalkBudget + 5);
    Walk result = walk(mesh, {0});
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.printed, "polyShellDiscover: Infinite loop detected, bailing.\n");
    ASSERT_EQ(result.shell.size(), std::size_t(type::kShellWalkBudget) + 1);
    EXPECT_EQ(result.shell.back(), type::kShellWalkBudget);
}

TEST(ShellDiscovery, VertexFormWithinItsBudgetWalksEverything) {
    ListTopology mesh = chain(type::kShellWalkBudget);
    Walk result = walk(mesh, {0});
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.printed, "");
    EXPECT_EQ(result.shell.size(), std::size_t(type::kShellWalkBudget));
}

TEST(ShellDiscovery, FaceFormHasNoBudget) {
    ListTopology mesh = chain(type::kShellWalkBudget + 5);
    type::BitSet faces;
    Walk result = walk(mesh, {0}, &faces);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.printed, "");
    EXPECT_EQ(result.shell.size(), std::size_t(type::kShellWalkBudget) + 5);
}

// The set starts too small for the mesh and grows to hold its faces.
TEST(ShellDiscovery, FaceSetSharedByTwoWalksHoldsBothShellsFaces) {
    ListTopology mesh = twoPieces();
    type::BitSet faces;
    EXPECT_TRUE(walk(mesh, {5}, &faces).ok);
    EXPECT_THAT(setBits(faces, 3), ElementsAre(2));
    EXPECT_TRUE(walk(mesh, {3}, &faces).ok);
    EXPECT_THAT(setBits(faces, 3), ElementsAre(0, 1, 2));
}

} // namespace
