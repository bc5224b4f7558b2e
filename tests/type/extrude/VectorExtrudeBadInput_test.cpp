#include "VectorExtrudeTesting.h"

#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <limits>

namespace typetest {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Input the older node cannot build from: the reason on the console, the
// user's warning pointing there, an empty solid and no crash.
class VectorExtrudeBadInput : public VectorExtrudeTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        runAll(kThreeFaces);
        ASSERT_GT(ZFnMesh(meshOf("vectorExtrude1")).numVertices(), 0);
    }

    static void setDoubles(const std::string& attribute, const std::vector<double>& values) {
        ZFnDoubleArrayData fn;
        const ZObject data = fn.create(ZDoubleArray(values));
        ASSERT_TRUE(plugNamed("vectorExtrude1", attribute).setValue(data)) << attribute;
    }

    struct Refusal {
        std::string console;
        std::string messages;
        int vertices = -1;
    };

    static Refusal evaluate() {
        Refusal out;
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        ZObject data;
        plugNamed("vectorExtrude1", "outputMesh").getValue(data);
        out.messages = ::testing::internal::GetCapturedStderr();
        out.console = ::testing::internal::GetCapturedStdout();
        out.vertices = data.isNull() ? -1 : ZFnMesh(data).numVertices();
        return out;
    }

    static void expectRefused(const Refusal& refusal, const std::string& reason) {
        EXPECT_NE(refusal.console.find("vectorExtrude: " + reason), std::string::npos) << refusal.console;
        EXPECT_NE(refusal.messages.find("No valid input. Check the Script Editor for more info."),
                  std::string::npos)
            << refusal.messages;
        EXPECT_EQ(refusal.vertices, 0);
        for (const char* list : {"capComponents", "bevelComponents", "extrusionComponents"})
            EXPECT_TRUE(componentFaces("vectorExtrude1", list).empty()) << list;
    }
};

TEST_F(VectorExtrudeBadInput, AnEmptyMeshGivesAnEmptySolid) {
    ASSERT_TRUE(run("setAttr -type \"mesh\" facesShape.inMesh 0 0"));
    expectRefused(evaluate(), "the input mesh has fewer than 3 points");
}

TEST_F(VectorExtrudeBadInput, DistancesThatAreNotNumbersAreRefused) {
    setDoubles("extrudeDistancePP", {1.0, kNaN});
    expectRefused(evaluate(), "extrudeDistancePP holds a value that is not a number");
    setDoubles("extrudeDistancePP", {});
    setDoubles("extrudeDistanceScalePP", {std::numeric_limits<double>::infinity()});
    expectRefused(evaluate(), "extrudeDistanceScalePP holds a value that is not a number");
    // Good values build again.
    setDoubles("extrudeDistanceScalePP", {2.0});
    EXPECT_GT(evaluate().vertices, 0);
}

TEST_F(VectorExtrudeBadInput, CharacterCountsThatAreNotCountsAreRefused) {
    for (const double odd : {-1.0, kNaN, 1e300}) {
        setDoubles("solidsPerCharacter", {1.0, odd});
        expectRefused(evaluate(), "solidsPerCharacter holds a value that is not a count");
    }
}

// A filter naming faces the input does not have extrudes none of its faces.
TEST_F(VectorExtrudeBadInput, AFilterThatListsNoFaceOfTheInputLeavesEveryFaceFlat) {
    ZFnSingleIndexedComponent componentFn;
    const ZObject component = componentFn.create(ZFn::kMeshPolygonComponent);
    ASSERT_TRUE(componentFn.addElements(ZIntArray(std::vector<int>{7, 9})));
    ZFnComponentListData listFn;
    const ZObject list = listFn.create();
    ASSERT_TRUE(listFn.add(component));
    ASSERT_TRUE(plugNamed("vectorExtrude1", "inputComponents").setValue(list));
    const Refusal flat = evaluate();
    EXPECT_EQ(flat.vertices, 12);
    EXPECT_EQ(flat.messages.find("No valid input"), std::string::npos) << flat.messages;
    EXPECT_EQ(ZFnMesh(meshOf("vectorExtrude1")).numPolygons(), 3);
}

// Odd but usable values build: huge distances are held to a size, division
// counts past the limit are held to it, an empty distance array is no array.
TEST_F(VectorExtrudeBadInput, OddButUsableValuesStillBuild) {
    setDoubles("extrudeDistancePP", {1e300});
    ASSERT_TRUE(run("setAttr vectorExtrude1.extrudeDivisions 100000"));
    ASSERT_TRUE(run("setAttr vectorExtrude1.frontBevelAdaptivity 1"));
    ASSERT_TRUE(run("setAttr vectorExtrude1.bevel 2"));
    const Refusal built = evaluate();
    EXPECT_GT(built.vertices, 0);
    EXPECT_EQ(built.messages.find("No valid input"), std::string::npos) << built.messages;
}

TEST_F(VectorExtrudeBadInput, AnUnconnectedNodeReportsTheMissingMesh) {
    ASSERT_EQ(text("createNode vectorExtrude"), "vectorExtrude2");
    const std::size_t errors = ZHost::errorCount();
    ZObject data;
    plugNamed("vectorExtrude2", "outputMesh").getValue(data);
    const std::vector<std::string> reported = ZHost::errorsSince(errors);
    ASSERT_FALSE(reported.empty());
    EXPECT_NE(reported.front().find("cannot get input mesh"), std::string::npos) << reported.front();
}

// A hole whose points all coincide cannot be put back into its cap: the
// node says so on the console, reports the failed call and builds nothing.
TEST_F(VectorExtrudeBadInput, AHoleThatCannotBeInsertedIsReported) {
    ASSERT_TRUE(
        run("setAttr -type \"mesh\" facesShape.inMesh 7  0 0 0  4 0 0  4 4 0  0 4 0  1 1 0  1 1 0  1 1 0 "
            " 1  2 4 0 1 2 3 3 6 5 4"));
    const Refusal failed = evaluate();
    EXPECT_NE(failed.console.find("Failed to create hole \n"), std::string::npos) << failed.console;
    EXPECT_NE(failed.messages.find("API error detected in typeExtrude at line "), std::string::npos)
        << failed.messages;
}

} // namespace
} // namespace typetest
