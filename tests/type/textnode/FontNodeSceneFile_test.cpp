#include "../plugin/PluginTesting.h"

// Scenes store the type node's settings by name; every one of them comes
// back from a saved scene as it was.
namespace typetest {
namespace {

using FontNodeSceneFile = TypePluginTest;

TEST_F(FontNodeSceneFile, SettingsSurviveASaveAndAnOpen) {
    const std::vector<std::string> settings = {
        "setAttr -type \"string\" type1.textInput \"48 69 0a 79 6f \"",
        "setAttr -type \"string\" type1.currentFont \"Serif\"",
        "setAttr -type \"string\" type1.currentStyle \"Bold Italic\"",
        "setAttr -type \"string\" type1.writingSystem \"Latin\"",
        "setAttr type1.manipulatorMode 2",
        "setAttr type1.manipulateId 3",
        "setAttr -type \"vectorArray\" type1.manipulatorPositionsPP 2 1 2 3 4 5 6",
        "setAttr -type \"doubleArray\" type1.alignmentAdjustments 2 0.5 1.5",
        "setAttr type1.fontSize 12.5",
        "setAttr type1.kerningScale 2",
        "setAttr type1.spaceWidthScale 0.5",
        "setAttr type1.tracking -3",
        "setAttr type1.leadingScale 1.5",
        "setAttr type1.curveResolution 7",
        "setAttr type1.alignmentMode 3",
        "setAttr type1.positionAdjust 1 2 3",
        "setAttr type1.rotationAdjust 10 20 30",
        "setAttr type1.scaleAdjust 0.5 0.25 0.125",
        "setAttr type1.enableDistanceFilter 1",
        "setAttr type1.pointDistanceFilter 0.75",
        "setAttr type1.setParity 1",
        "setAttr type1.removeColinear 1",
        "setAttr type1.colinearAngle 12",
        "setAttr type1.animationPosition 1 2 3",
        "setAttr type1.animationRotation 45 90 135",
        "setAttr type1.animationScale 2 3 4",
        "setAttr type1.deformableType 1",
        "setAttr type1.legacyDecomposition 1",
        "setAttr type1.preTLDecompose 1",
        "setAttr type1.maxDivisions 9",
        "setAttr type1.maxEdgeLength 2.5",
        "setAttr type1.generator 8",
        "setAttr type1.countdown 99",
        "setAttr type1.changeRate 4",
        "setAttr type1.randomRange -5 5",
        "setAttr type1.length 6",
        "setAttr type1.decimalPlaces 2",
        "setAttr type1.randomSeed 42",
        "setAttr type1.percent 30",
        "setAttr type1.reverse 1",
        "setAttr type1.random 1",
        "setAttr type1.delay 2.5",
        "setAttr type1.randomizerMode 3",
        "setAttr -type \"string\" type1.animatedType \"[{\\\"hex\\\": \\\"41\\\", \\\"frame\\\": 2}]\"",
        "setAttr -type \"string\" type1.pythonExpression \"str(7 * 6)\"",
    };
    ASSERT_EQ(text("createNode type"), "type1");
    for (const std::string& setting : settings)
        ASSERT_TRUE(run(setting)) << setting;

    python("import zyvo.cmds");
    const std::string everything =
        "[(a, zyvo.cmds.getAttr('type1.' + a)) for a in ("
        "'textInput', 'currentFont', 'currentStyle', 'writingSystem', "
        "'manipulatorMode', 'manipulateId', 'manipulatorPositionsPP', "
        "'alignmentAdjustments', 'fontSize', 'kerningScale', 'spaceWidthScale', "
        "'tracking', 'leadingScale', 'curveResolution', 'alignmentMode', "
        "'positionAdjust', 'rotationAdjust', 'scaleAdjust', 'enableDistanceFilter', "
        "'pointDistanceFilter', 'setParity', 'removeColinear', 'colinearAngle', "
        "'animationPosition', 'animationRotation', 'animationScale', "
        "'deformableType', 'legacyDecomposition', 'preTLDecompose', 'maxDivisions', "
        "'maxEdgeLength', 'generator', 'countdown', 'changeRate', 'randomRange', "
        "'length', 'decimalPlaces', 'randomSeed', 'percent', 'reverse', 'random', "
        "'delay', 'randomizerMode', 'animatedType', 'pythonExpression')]";
    const std::string before = python(everything);

    const auto path = testFolder() / "settings.zya";
    std::filesystem::create_directories(testFolder());
    ASSERT_TRUE(run("file -rename \"" + path.string() + "\""));
    ASSERT_TRUE(run("file -save"));
    ASSERT_TRUE(run("file -new -f"));
    ASSERT_TRUE(run("file -open -f \"" + path.string() + "\""));

    EXPECT_EQ(python(everything), before);
    // The generator's time connection is part of the scene as well.
    EXPECT_THAT(texts("listConnections -s 1 -d 0 -p 1 type1.time"), ::testing::ElementsAre("time1.outTime"));
}

} // namespace
} // namespace typetest
