#include "SceneTest.h"

namespace {

// Three shells: a quad; two quads sharing an edge; a square with a
// triangular hole.
constexpr const char* kMesh = "setAttr shape.inMesh -type \"mesh\" 17 "
                              "0 0 0 1 0 0 1 1 0 0 1 0 "
                              "3 0 0 4 0 0 4 1 0 3 1 0 5 0 0 5 1 0 "
                              "0 3 0 4 3 0 4 7 0 0 7 0 "
                              "1 4 0 2 6 0 3 4 0 "
                              "4  1 4 0 1 2 3  1 4 4 5 6 7  1 4 5 8 9 6  2 4 10 11 12 13 3 14 15 16";

class PolyEvaluate : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode mesh -n shape");
        run(kMesh);
    }
};

TEST_F(PolyEvaluate, CountsShellsAndComponentsOfAShapeOrItsTransform) {
    EXPECT_EQ(run("polyEvaluate -s shape"), "3");
    EXPECT_EQ(run("polyEvaluate -v -e -f -t transform1"), "17 18 4 13");
    run("select shape");
    EXPECT_EQ(run("polyEvaluate -f"), "4");
}

TEST_F(PolyEvaluate, HolesStayHolesOfTheirFace) {
    run("setAttr shape.inMesh -type \"mesh\" 7 0 0 0 4 0 0 4 4 0 0 4 0 1 1 0 2 3 0 3 1 0 1 2 4 0 1 2 3 3 4 5 "
        "6");
    EXPECT_EQ(run("polyEvaluate -f -s -t shape"), "1 7 1") << "faces, triangles, shells";
}

TEST_F(PolyEvaluate, Errors) {
    run("createNode sceneTestNode -n plain");
    EXPECT_EQ(failure("polyEvaluate -s plain"), "polyEvaluate: 'plain' has no mesh");
    EXPECT_EQ(failure("polyEvaluate -s ghost"), "polyEvaluate: No object matches name: ghost");
    EXPECT_EQ(failure("polyEvaluate shape"),
              "polyEvaluate: ask for -vertex, -edge, -face, -triangle or -shell");
    EXPECT_EQ(failure("setAttr shape.inMesh -type \"mesh\" 3 0 0 0 1 0 0 0 1 0 1 1 3 0 1 20"),
              "setAttr: 'shape.inMesh': mesh: vertex id 20 is outside 0..2");
    EXPECT_EQ(failure("setAttr shape.inMesh -type \"mesh\" 3 0 0 0 1 0 0 0 1 0 1 1 2 0 1"),
              "setAttr: 'shape.inMesh': mesh: a loop's vertex count must be at least 3, found 2");
    EXPECT_EQ(run("polyEvaluate -s shape"), "3") << "a refused mesh leaves the stored one";
}

} // namespace
