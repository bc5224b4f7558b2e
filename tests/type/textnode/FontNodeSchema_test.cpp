#include "../GoldenTable.h"
#include "../plugin/PluginTesting.h"

#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZSelectionList.h>
#include <map>
#include <optional>
#include <set>

// The type node's attributes are what scenes store: names, types, defaults,
// ranges, flags and what each input dirties never change.
namespace typetest {
namespace {

struct Attribute {
    std::string name;
    std::string type; // as getAttr -type names it
};

// The node's attributes in order of creation, children before their compound.
const std::vector<Attribute>& attributes() {
    static const std::vector<Attribute> table = [] {
        std::vector<Attribute> rows;
        for (const GoldenRow& row : readGoldenTable("type_node_attributes.tsv", 2))
            rows.push_back({row[0], row[1]});
        return rows;
    }();
    return table;
}

class FontNodeSchema : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_EQ(text("createNode type"), "type1");
        ZSelectionList list;
        ASSERT_TRUE(list.add("type1"));
        ASSERT_TRUE(list.getDependNode(0, m_node));
    }

    ZObject attribute(const std::string& name) const {
        ZStatus status;
        const ZObject found = ZFnDependencyNode(m_node).attribute(name, &status);
        EXPECT_TRUE(status) << name;
        return found;
    }

    ZObject m_node;
};

void inCreationOrder(const ZObject& attribute, std::vector<std::string>& names) {
    if (attribute.apiType() == ZFn::kCompoundAttribute) {
        const ZFnCompoundAttribute compound(attribute);
        for (unsigned int i = 0; i < compound.numChildren(); ++i)
            inCreationOrder(compound.child(i), names);
    }
    names.push_back(ZFnAttribute(attribute).name().asStdString());
}

// Every row of the golden table is an attribute of the node, in the same
// order and of the same type, and the node has no attribute the table lacks.
TEST_F(FontNodeSchema, HasItsAttributesInOrderWithTheirNamesAndTypes) {
    const ZFnDependencyNode node(m_node);
    std::vector<std::string> created;
    for (unsigned int i = 0; i < node.attributeCount(); ++i) {
        const ZObject candidate = node.attribute(i);
        const ZFnAttribute fn(candidate);
        if (fn.parent().isNull() && fn.name() != "message")
            inCreationOrder(candidate, created);
    }
    std::vector<std::string> expected;
    for (const Attribute& a : attributes())
        expected.push_back(a.name);
    EXPECT_THAT(created, ::testing::ElementsAreArray(expected));

    for (const Attribute& a : attributes()) {
        const std::string shortName = ZFnAttribute(attribute(a.name)).shortName().asStdString();
        EXPECT_EQ(shortName, a.name == "time" ? "ti" : a.name == "vectorMessages" ? "typeMessages" : a.name);
        EXPECT_EQ(text("getAttr -type type1." + a.name), a.type) << a.name;
    }
}

// The numbers a pair or triple holds are reachable one by one.
TEST_F(FontNodeSchema, PairsAndTriplesHaveNumberedChildren) {
    for (const char* triple : {"positionAdjust", "rotationAdjust", "scaleAdjust"})
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(text("getAttr -type type1." + std::string(triple) + std::to_string(i)), "double");
    EXPECT_EQ(text("getAttr -type type1.randomRange0"), "long");
    EXPECT_EQ(text("getAttr -type type1.randomRange1"), "long");
}

// Inputs only: reading an output evaluates the node, which fills it from the text.
TEST_F(FontNodeSchema, StartsWithItsDefaults) {
    const std::map<std::string, double> numbers = {
        {"manipulateId", 0},
        {"manipulatePolygon", 0},
        {"manipulateWord", 0},
        {"manipulateLine", 0},
        {"manipulatorMode", 1},
        {"fontSize", 20.0},
        {"kerningScale", 1.0},
        {"spaceWidthScale", 1.0},
        {"tracking", 0.0},
        {"leadingScale", 1.0},
        {"curveResolution", 4},
        {"alignmentMode", 1},
        {"enableDistanceFilter", 0},
        {"pointDistanceFilter", 0.2},
        {"setParity", 0},
        {"removeColinear", 0},
        {"colinearAngle", 0.2},
        {"animationPositionX", 0},
        {"animationPositionY", 0},
        {"animationPositionZ", 0},
        {"animationRotationX", 0},
        {"animationRotationY", 0},
        {"animationRotationZ", 0},
        {"animationScaleX", 1.0},
        {"animationScaleY", 1.0},
        {"animationScaleZ", 1.0},
        {"deformableType", 0},
        {"legacyDecomposition", 0},
        {"preTLDecompose", 0},
        {"maxDivisions", 20},
        {"maxEdgeLength", 5.0},
        {"generator", 0},
        {"countdown", 0},
        {"changeRate", 1},
        {"length", 4},
        {"decimalPlaces", 3},
        {"randomSeed", 0},
        {"percent", 0},
        {"reverse", 0},
        {"random", 0},
        {"delay", 0.0},
        {"randomizerMode", 0},
        {"time", 1.0},
    };
    for (const auto& [name, value] : numbers)
        EXPECT_NEAR(real("getAttr type1." + name), value, 1e-6) << name;

    const std::map<std::string, std::string> strings = {
        {"textInput", "33 44 20 54 79 70 65"},
        {"pythonExpression", "round(random.uniform(0,5), 2)"},
        {"currentFont", ""},
        {"currentStyle", ""},
        {"writingSystem", ""},
        {"animatedType", ""},
    };
    for (const auto& [name, value] : strings)
        EXPECT_EQ(text("getAttr type1." + name), value) << name;

    python("import zyvo.cmds");
    EXPECT_EQ(number("getAttr type1.randomRange0"), 0);
    EXPECT_EQ(number("getAttr type1.randomRange1"), 10);
    for (const char* triple : {"positionAdjust", "rotationAdjust", "scaleAdjust"})
        EXPECT_EQ(python("zyvo.cmds.getAttr('type1." + std::string(triple) + "')"), "[0.0, 0.0, 0.0]");
}

std::optional<double> limitOf(const ZFnNumericAttribute& fn, bool (ZFnNumericAttribute::*has)(ZStatus*) const,
                              ZStatus (ZFnNumericAttribute::*get)(double&) const) {
    double value = 0.0;
    if (!(fn.*has)(nullptr) || !(fn.*get)(value))
        return std::nullopt;
    return value;
}

TEST_F(FontNodeSchema, LimitsItsNumbersAsDeclared) {
    struct Limits {
        std::optional<double> min, max, softMin, softMax;
    };
    const std::map<std::string, Limits> declared = {
        {"fontSize", {{}, {}, 0.1, 100.0}},          {"kerningScale", {{}, {}, 0.0, 5.0}},
        {"spaceWidthScale", {{}, {}, 0.0, 5.0}},     {"tracking", {{}, {}, -10.0, 10.0}},
        {"leadingScale", {{}, {}, 0.0, 5.0}},        {"curveResolution", {1.0, 100.0, {}, 10.0}},
        {"pointDistanceFilter", {0.0, {}, {}, 5.0}}, {"colinearAngle", {0.0, 40.0, {}, 5.0}},
        {"maxDivisions", {1.0, 100.0, {}, 30.0}},    {"maxEdgeLength", {0.01, {}, 0.1, 15.0}},
        {"changeRate", {1.0, {}, {}, 100.0}},        {"length", {0.0, {}, {}, 20.0}},
        {"decimalPlaces", {0.0, {}, {}, 10.0}},      {"randomSeed", {1.0, {}, {}, 100.0}},
        {"percent", {0.0, {}, {}, 100.0}},           {"delay", {0.0, {}, {}, 100.0}},
    };
    for (const Attribute& a : attributes()) {
        const ZObject object = attribute(a.name);
        if (!object.hasFn(ZFn::kNumericAttribute) ||
            ZFnAttribute(object).parent().hasFn(ZFn::kNumericAttribute))
            continue;
        const ZFnNumericAttribute fn(object);
        const auto found = declared.find(a.name);
        const Limits limits = found == declared.end() ? Limits{} : found->second;
        EXPECT_EQ(limitOf(fn, &ZFnNumericAttribute::hasMin, &ZFnNumericAttribute::getMin), limits.min)
            << a.name;
        EXPECT_EQ(limitOf(fn, &ZFnNumericAttribute::hasMax, &ZFnNumericAttribute::getMax), limits.max)
            << a.name;
        EXPECT_EQ(limitOf(fn, &ZFnNumericAttribute::hasSoftMin, &ZFnNumericAttribute::getSoftMin),
                  limits.softMin)
            << a.name;
        EXPECT_EQ(limitOf(fn, &ZFnNumericAttribute::hasSoftMax, &ZFnNumericAttribute::getSoftMax),
                  limits.softMax)
            << a.name;
    }
}

TEST_F(FontNodeSchema, SetsOnlyTheFlagsItDeclares) {
    const std::set<std::string> keyable = {
        "textInput",         "fontSize",           "kerningScale",       "spaceWidthScale",
        "tracking",          "leadingScale",       "curveResolution",    "pointDistanceFilter",
        "colinearAngle",     "animationPositionX", "animationPositionY", "animationPositionZ",
        "animationPosition", "animationRotationX", "animationRotationY", "animationRotationZ",
        "animationRotation", "animationScaleX",    "animationScaleY",    "animationScaleZ",
        "animationScale",    "maxDivisions",       "maxEdgeLength",      "animatedType"};
    const std::set<std::string> interfaceOnly = {"fontError", "homeFolder", "fontList", "styleList",
                                                 "fontStyleList"};
    for (const Attribute& a : attributes()) {
        const ZFnAttribute fn(attribute(a.name));
        const bool shown = interfaceOnly.count(a.name) == 0;
        EXPECT_TRUE(fn.isReadable()) << a.name;
        EXPECT_EQ(fn.isWritable(), shown) << a.name;
        // Messages carry no value, so the host never stores them.
        const bool storable = shown && a.name != "outputMesh" && a.type != "message";
        EXPECT_EQ(fn.isStorable(), storable) << a.name;
        EXPECT_EQ(fn.isHidden(), !shown) << a.name;
        EXPECT_EQ(fn.isKeyable(), keyable.count(a.name) == 1) << a.name;
    }
}

TEST_F(FontNodeSchema, EnumsOfferExactlyTheirFields) {
    const std::map<std::string, std::vector<std::pair<std::string, int>>> fields = {
        {"manipulatorMode", {{"Character", 0}, {"Word", 1}, {"Line", 2}}},
        {"alignmentMode", {{"Left", 1}, {"Centre", 2}, {"Right", 3}}},
        {"generator",
         {{"Off", 0},
          {"Frame Number", 1},
          {"Scene Time", 2},
          {"Random", 6},
          {"Animated Text", 8},
          {"Python", 9}}},
        {"randomizerMode", {{"Alphanumeric", 0}, {"Alphabetical", 1}, {"Numeric", 2}, {"Input Text", 3}}},
    };
    for (const auto& [name, expected] : fields) {
        ZStringArray names;
        ZIntArray values;
        ASSERT_TRUE(ZFnEnumAttribute(attribute(name.c_str())).getFields(names, values)) << name;
        std::vector<std::pair<std::string, int>> found;
        for (unsigned int i = 0; i < names.length(); ++i)
            found.emplace_back(names[i].asStdString(), values[i]);
        EXPECT_EQ(found, expected) << name;
    }
}

TEST_F(FontNodeSchema, InputsDirtyExactlyTheirOutputs) {
    using Names = std::set<std::string>;
    const Names mesh = {"outputMesh",   "manipulatorPivots",         "numberOfShells",
                        "vertsPerChar", "characterBoundingBoxesMax", "characterBoundingBoxesMin",
                        "holeInfo"};
    Names fromGenerator = mesh;
    fromGenerator.insert(
        {"manipulatorPositionsPP", "manipulatorWordPositionsPP", "manipulatorLinePositionsPP",
         "manipulatorRotationsPP", "manipulatorWordRotationsPP", "manipulatorLineRotationsPP",
         "manipulatorScalesPP", "manipulatorWordScalesPP", "manipulatorLineScalesPP", "manipulateId",
         "manipulatePolygon", "manipulateWord", "manipulateLine", "alignmentAdjustments", "grouping"});
    Names fromTime = fromGenerator;
    fromTime.insert({"solidsPerCharacter", "solidsPerWord", "solidsPerLine", "fontError"});
    Names fromLength = mesh;
    fromLength.insert("grouping");
    Names fromSeed = fromLength;
    fromSeed.insert("manipulatorTransforms");
    Names fromText = mesh;
    fromText.insert({"grouping", "fontError", "manipulatorTransforms"});
    const Names decomposition = {"outputMesh", "vertsPerChar", "holeInfo"};
    const Names spacing = {"outputMesh", "manipulatorPivots", "manipulatorTransforms"};

    const std::map<std::string, Names> affects = {
        {"textInput", fromText},
        {"currentFont", fromText},
        {"currentStyle",
         {"outputMesh", "manipulatorPivots", "vertsPerChar", "characterBoundingBoxesMax",
          "characterBoundingBoxesMin", "holeInfo", "fontError"}},
        {"writingSystem",
         {"outputMesh", "manipulatorPivots", "numberOfShells", "vertsPerChar", "characterBoundingBoxesMax",
          "characterBoundingBoxesMin", "holeInfo", "fontError"}},
        {"homeFolder", {"outputMesh"}},
        {"fontSize", {"outputMesh", "manipulatorPivots", "manipulatorTransforms", "vertsPerChar"}},
        {"kerningScale", spacing},
        {"spaceWidthScale", spacing},
        {"leadingScale", spacing},
        {"tracking", {"outputMesh", "manipulatorPivots", "manipulatorTransforms", "manipulatorPositionsPP"}},
        {"alignmentMode",
         {"outputMesh", "manipulatorPivots", "manipulatorTransforms", "characterBoundingBoxesMax",
          "alignmentAdjustments"}},
        {"positionAdjust", {"manipulatorTransforms"}},
        {"rotationAdjust", {"manipulatorTransforms"}},
        {"scaleAdjust", {"manipulatorTransforms"}},
        {"curveResolution", decomposition},
        {"enableDistanceFilter", decomposition},
        {"pointDistanceFilter", decomposition},
        {"removeColinear", decomposition},
        {"colinearAngle", decomposition},
        {"deformableType", decomposition},
        {"legacyDecomposition", decomposition},
        {"preTLDecompose", decomposition},
        {"maxDivisions", decomposition},
        {"maxEdgeLength", decomposition},
        {"setParity", {"outputMesh"}},
        {"generator", fromGenerator},
        {"countdown", {"outputMesh"}},
        {"changeRate", {"outputMesh"}},
        {"randomRange", {"outputMesh"}},
        {"percent", {"outputMesh"}},
        {"reverse", {"outputMesh"}},
        {"random", {"outputMesh"}},
        {"length", fromLength},
        {"decimalPlaces", fromLength},
        {"delay", fromLength},
        {"randomizerMode", fromLength},
        {"randomSeed", fromSeed},
        {"time", fromTime},
        {"animatedType", fromTime},
        {"pythonExpression", fromTime},
    };
    const ZFnDependencyNode node(m_node);
    for (const Attribute& a : attributes()) {
        ZObjectArray affected;
        ASSERT_TRUE(node.getAffectedAttributes(attribute(a.name), affected)) << a.name;
        Names found;
        for (const ZObject& output : affected)
            found.insert(ZFnAttribute(output).name().asStdString());
        const auto expected = affects.find(a.name);
        EXPECT_EQ(found, expected == affects.end() ? Names{} : expected->second) << a.name;
    }
}

} // namespace
} // namespace typetest
