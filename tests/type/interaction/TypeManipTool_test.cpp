#include "../plugin/PluginTesting.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvoUI/Z3dView.h>
#include <algorithm>
#include <sstream>

// The type manipulator tool as a user meets it: a text object made by the
// plug-in's script, the tool made current, a click in the view on the text
// and drags of the handles, all through commands.
namespace typetest {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

ZObject nodeNamed(const std::string& name) {
    ZSelectionList list;
    list.add(ZString(name));
    ZObject node;
    list.getDependNode(0, node);
    return node;
}

ZPlug typePlug(const std::string& attribute) {
    return ZFnDependencyNode(nodeNamed("type1")).findPlug(ZString(attribute), true);
}

std::vector<double> triple(const std::string& attribute) {
    const ZPlug plug = typePlug(attribute);
    return {plug.child(0).asDouble(), plug.child(1).asDouble(), plug.child(2).asDouble()};
}

// The entries of a vector-array attribute of the text's type node.
std::vector<ZVector> stored(const std::string& attribute) {
    ZVectorArray values;
    ZFnVectorArrayData(typePlug(attribute).asZObject()).copyTo(values);
    return values.asVector();
}

class TypeManipTool : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_TRUE(run("typeCreateText"));
        // The solid's first evaluation queues the creation of its vertex
        // group ids; done here, it is no undo step of the user's.
        ASSERT_EQ(number("polyEvaluate -s typeMesh1Shape"), 6);
        m_tool = text("typeManipContextCommand");
        ASSERT_FALSE(m_tool.empty());
    }

    // A point on the solid inside character `character` of "3D Type" and
    // outside the others: the centre of a triangle of a cap facing the view.
    ZPoint pointOnCharacter(std::size_t character) {
        const ZFnMesh mesh(nodeNamed("typeMesh1Shape"));
        // In no other character's box: italics overlap.
        const std::vector<ZVector> minima = stored("characterBoundingBoxesMin");
        const std::vector<ZVector> maxima = stored("characterBoundingBoxesMax");
        const auto inBox = [&](std::size_t box, const ZPoint& p) {
            return p.x > minima[box].x && p.x < maxima[box].x && p.y > minima[box].y && p.y < maxima[box].y;
        };
        ZIntArray counts, corners;
        mesh.getTriangles(counts, corners);
        unsigned int corner = 0;
        for (int face = 0; face < static_cast<int>(counts.length()); ++face) {
            ZVector normal;
            mesh.getPolygonNormal(face, normal);
            for (int triangle = 0; triangle < counts[face]; ++triangle, corner += 3) {
                ZPoint a, b, c;
                mesh.getPoint(corners[corner], a);
                mesh.getPoint(corners[corner + 1], b);
                mesh.getPoint(corners[corner + 2], c);
                const ZPoint centre((a.x + b.x + c.x) / 3, (a.y + b.y + c.y) / 3, (a.z + b.z + c.z) / 3);
                bool alone = normal.z > 0.99 && inBox(character, centre);
                for (std::size_t other = 0; other < minima.size() && alone; ++other)
                    alone = other == character || !inBox(other, centre);
                if (alone)
                    return centre;
            }
        }
        ADD_FAILURE() << "no cap face in character " << character;
        return {};
    }

    // A click straight down the Z axis on `point`: a narrow orthographic view
    // centred on it, clicked in the middle.
    void clickOn(const ZPoint& point) {
        std::ostringstream camera;
        camera << "viewCamera -orthographic true -orthographicWidth 0.5 -portSize 641 481 -position "
               << point.x << " " << point.y << " " << point.z + 50 << " -aim " << point.x << " " << point.y
               << " " << point.z;
        ASSERT_TRUE(run(camera.str()));
        ASSERT_TRUE(ZGlobal::executeCommand("viewClick -x 320 -y 240", false, true));
    }

    // The points of the text object's solid, as its shape shows them.
    std::vector<ZPoint> solidPoints() {
        ZPointArray points;
        EXPECT_TRUE(ZFnMesh(nodeNamed("typeMesh1Shape")).getPoints(points));
        return points.asVector();
    }

    // "Type", the second word, moved up by 5, turned 30 degrees about Z and
    // doubled about its pivot; "3D" as it was.
    void expectWordMovedRotatedAndScaled(const std::vector<ZPoint>& before,
                                         const std::vector<ZPoint>& after) {
        ASSERT_EQ(after.size(), before.size());
        // The words lie apart along x: the widest gap between the solid's points parts them.
        std::vector<double> xs;
        for (const ZPoint& p : before)
            xs.push_back(p.x);
        std::sort(xs.begin(), xs.end());
        std::size_t widest = 1;
        for (std::size_t i = 1; i < xs.size(); ++i)
            if (xs[i] - xs[i - 1] > xs[widest] - xs[widest - 1])
                widest = i;
        const double split = (xs[widest] + xs[widest - 1]) / 2;
        std::vector<std::size_t> word;
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i].x < split) {
                EXPECT_NEAR((after[i] - before[i]).length(), 0.0, 1e-9) << "vertex " << i << " of \"3D\"";
                continue;
            }
            word.push_back(i);
        }
        ASSERT_GT(word.size(), 10u);
        // A similarity: every distance doubles and every direction in the
        // plane of the text turns by 30 degrees.
        const std::size_t a = word.front();
        const double turn = 30.0 * M_PI / 180.0;
        for (const std::size_t b : word) {
            const ZVector was = before[b] - before[a];
            const ZVector is = after[b] - after[a];
            EXPECT_NEAR(is.length(), 2 * was.length(), 1e-6) << "vertex " << b;
            const ZVector turned(std::cos(turn) * was.x - std::sin(turn) * was.y,
                                 std::sin(turn) * was.x + std::cos(turn) * was.y, was.z);
            EXPECT_NEAR((is - 2 * turned).length(), 0.0, 1e-6) << "vertex " << b;
        }
        // The point the turn and the scale keep in place, less the move: the
        // word's pivot, its left end on the baseline.
        const ZPoint rhs = after[a] - ZVector(0, 5, 0);
        const ZVector was(before[a].x, before[a].y, 0);
        const ZVector turnedA(2 * (std::cos(turn) * was.x - std::sin(turn) * was.y),
                              2 * (std::sin(turn) * was.x + std::cos(turn) * was.y), 0);
        // (I - 2R) c = rhs - 2R p, solved in the plane of the text.
        const double m00 = 1 - 2 * std::cos(turn), m01 = 2 * std::sin(turn);
        const double m10 = -2 * std::sin(turn), m11 = 1 - 2 * std::cos(turn);
        const double bx = rhs.x - turnedA.x, by = rhs.y - turnedA.y;
        const double det = m00 * m11 - m01 * m10;
        const double cx = (bx * m11 - m01 * by) / det, cy = (m00 * by - m10 * bx) / det;
        EXPECT_NEAR(cx, xs[widest], 1e-6);
        EXPECT_NEAR(cy, 0.0, 1e-6);
    }

    std::string m_tool;
};

TEST_F(TypeManipTool, ClickingTheSecondWordAndDraggingEditsThatWordOnly) {
    ASSERT_EQ(number("getAttr type1.manipulatorMode"), 1) << "a new text edits words";
    const std::vector<ZPoint> rest = solidPoints();
    ASSERT_TRUE(run("setToolTo " + m_tool));
    const std::vector<std::string> before = texts("ls -sl");
    clickOn(pointOnCharacter(3));
    EXPECT_THAT(texts("ls -sl"), ElementsAre("typeMesh1"));
    EXPECT_EQ(number("getAttr type1.manipulateId"), 1);
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);

    ASSERT_TRUE(ZGlobal::executeCommand("dragManipulator -move 0 5 0", false, true));
    ASSERT_TRUE(ZGlobal::executeCommand("dragManipulator -rotate 30 -axis 0 0 1", false, true));
    ASSERT_TRUE(ZGlobal::executeCommand("dragManipulator -scale 2 2 2", false, true));

    EXPECT_EQ(triple("positionAdjust"), (std::vector<double>{0, 5, 0}));
    const std::vector<double> rotation = triple("rotationAdjust");
    EXPECT_NEAR(rotation[0], 0, 1e-9);
    EXPECT_NEAR(rotation[1], 0, 1e-9);
    EXPECT_NEAR(rotation[2], 30, 1e-9);
    EXPECT_EQ(triple("scaleAdjust"), (std::vector<double>{1, 1, 1})) << "scales count from 1";
    EXPECT_THAT(stored("manipulatorWordPositionsPP"), ElementsAre(ZVector(), ZVector(0, 5, 0)));
    EXPECT_THAT(stored("manipulatorWordScalesPP"), ElementsAre(ZVector(), ZVector(1, 1, 1)));
    const std::vector<ZVector> rotations = stored("manipulatorWordRotationsPP");
    ASSERT_EQ(rotations.size(), 2u);
    EXPECT_EQ(rotations[0], ZVector());
    EXPECT_NEAR(rotations[1].z, 30, 1e-9);
    EXPECT_THAT(stored("manipulatorPositionsPP"), Each(ZVector())) << "the characters keep their own edits";
    EXPECT_THAT(stored("manipulatorLinePositionsPP"), Each(ZVector()));
    expectWordMovedRotatedAndScaled(rest, solidPoints());

    // Each drag is one undo step, and the click another.
    for (int step = 0; step < 3; ++step)
        ASSERT_TRUE(run("undo"));
    EXPECT_THAT(stored("manipulatorWordPositionsPP"), ElementsAre(ZVector(), ZVector()));
    EXPECT_THAT(stored("manipulatorWordScalesPP"), ElementsAre(ZVector(), ZVector()));
    EXPECT_EQ(solidPoints(), rest) << "undone, the solid is as it was";
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(texts("ls -sl"), before);
    EXPECT_EQ(texts("ls -type typeManip").size(), 0u) << "no text selected, no manipulator";
}

TEST_F(TypeManipTool, AClickBesideTheTextEditsTheFirstElement) {
    ASSERT_TRUE(run("select typeMesh1"));
    ASSERT_TRUE(run("setAttr type1.manipulateId 1"));
    ASSERT_TRUE(run("setToolTo " + m_tool));
    clickOn(pointOnCharacter(3) + ZVector(0, 500, 0));
    EXPECT_THAT(texts("ls -sl"), ElementsAre("typeMesh1")) << "a click on nothing keeps the selection";
    EXPECT_EQ(number("getAttr type1.manipulateId"), 0);
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);
}

TEST_F(TypeManipTool, AStoredArrayShorterThanTheElementLeavesTheAdjustAlone) {
    // An emptied text leaves its word arrays as they are; a scene may hold them shorter.
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"\""));
    for (const char* kind : {"Positions", "Rotations", "Scales"})
        ASSERT_TRUE(run(std::string("setAttr type1.manipulatorWord") + kind + "PP -type vectorArray 0"));
    ASSERT_TRUE(run("setAttr type1.positionAdjust 7 8 9"));
    ASSERT_TRUE(run("select typeMesh1"));
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(run("setToolTo " + m_tool));
    const std::string errors = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(number("getAttr type1.manipulateId"), 0);
    EXPECT_THAT(errors, HasSubstr("Position word not found 0\n"));
    EXPECT_THAT(errors, HasSubstr("Scale word not found 0\n"));
    EXPECT_EQ(triple("positionAdjust"), (std::vector<double>{7, 8, 9}));
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u) << "the manipulator still comes";
}

TEST_F(TypeManipTool, EachModeFeedsTheAdjustFromItsOwnArrays) {
    ASSERT_TRUE(run("setToolTo " + m_tool));
    const ZPoint onY = pointOnCharacter(3);
    ASSERT_TRUE(run("setAttr type1.manipulatorMode 0"));
    clickOn(onY);
    EXPECT_EQ(number("getAttr type1.manipulateId"), 3) << "the character";
    ASSERT_TRUE(ZGlobal::executeCommand("dragManipulator -move 1 0 0", false, true));

    ASSERT_TRUE(run("setAttr type1.manipulatorMode 2"));
    clickOn(onY);
    EXPECT_EQ(number("getAttr type1.manipulateId"), 0) << "the only line";
    EXPECT_EQ(triple("positionAdjust"), (std::vector<double>{0, 0, 0})) << "the line has no edit of its own";
    ASSERT_TRUE(ZGlobal::executeCommand("dragManipulator -move 0 0 2", false, true));

    ASSERT_TRUE(run("setAttr type1.manipulatorMode 0"));
    // The solid shows the edits: the character has moved.
    clickOn(pointOnCharacter(3));
    EXPECT_EQ(triple("positionAdjust"), (std::vector<double>{1, 0, 0})) << "the character's edit comes back";
    EXPECT_THAT(stored("manipulatorLinePositionsPP"), ElementsAre(ZVector(0, 0, 2)));
    EXPECT_THAT(stored("manipulatorWordPositionsPP"), Each(ZVector()));
}

TEST_F(TypeManipTool, SeveralObjectsOrOneWithoutTextGetNoManipulator) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("setAttr type1.manipulateId 1"));
    ASSERT_TRUE(run("setToolTo " + m_tool));
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(run("select typeMesh1 typeMesh2"));
    ASSERT_TRUE(run("select groupId1"));
    ASSERT_TRUE(run("select time1"));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "") << "no message";
    EXPECT_THAT(texts("ls -type typeManip"), IsEmpty());
    EXPECT_EQ(number("getAttr type1.manipulateId"), 1) << "untouched";

    // A drag needs a manipulator.
    EXPECT_FALSE(ZGlobal::executeCommand("dragManipulator -move 0 1 0"));
    ASSERT_TRUE(run("select typeMesh2"));
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);
}

TEST_F(TypeManipTool, TheToolNamesItselfAndGoesAwayWithThePlugin) {
    ASSERT_TRUE(run("select typeMesh1"));
    ASSERT_TRUE(ZGlobal::executeCommand(ZString("setToolTo " + m_tool), false, true));
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);
    ASSERT_TRUE(run("undo"));
    EXPECT_THAT(texts("ls -type typeManip"), IsEmpty()) << "the tool before has no manipulator";
    ASSERT_TRUE(run("redo"));
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);

    ZFileIO::newFile(true);
    EXPECT_TRUE(run("unloadPlugin Type"));
    EXPECT_FALSE(run("setToolTo " + m_tool)) << "the context went with its command";
}

// The group ids a new solid queues for its characters were made with
// createNode, which selected each: the tool then lost the text it was on.
TEST_F(TypeManipTool, TheSolidsFirstEvaluationKeepsTheSelection) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("select typeMesh2"));
    ASSERT_TRUE(run("setToolTo " + m_tool));
    EXPECT_THAT(texts("ls -sl"), ElementsAre("typeMesh2"));
    EXPECT_EQ(texts("ls -type typeManip").size(), 1u);
}

} // namespace
} // namespace typetest
