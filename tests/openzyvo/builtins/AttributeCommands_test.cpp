#include "SceneTest.h"

#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <cmath>
#include <numbers>

namespace {

class AttributeCommands : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode sceneTestNode -n n; createNode transform -n t");
    }
    static ZPlug plug(const char* name) {
        ZSelectionList list;
        EXPECT_TRUE(list.add(name)) << name;
        ZPlug found;
        list.getPlug(0, found);
        return found;
    }
};

TEST_F(AttributeCommands, NumbersBooleansEnumsAndTriples) {
    run("setAttr n.weight 2.5");
    EXPECT_EQ(run("getAttr n.weight"), "2.5");
    run("setAttr n.weight 25");
    EXPECT_EQ(run("getAttr n.weight"), "10") << "the hard maximum clamps";
    run("setAttr n.mode 5");
    EXPECT_EQ(run("getAttr n.mode"), "5");
    run("setAttr n.mode \"Off\"");
    EXPECT_EQ(run("getAttr n.mode"), "0");
    run("setAttr t.translate 1 -2 3.25");
    EXPECT_EQ(run("getAttr t.translate"), "1 -2 3.25");
    EXPECT_EQ(run("getAttr t.translateY"), "-2");
}

TEST_F(AttributeCommands, AnglesAreGivenInTheUsersUnit) {
    run("setAttr t.rotateX 90");
    EXPECT_DOUBLE_EQ(plug("t.rotateX").asDouble(), std::numbers::pi / 2);
    EXPECT_EQ(run("getAttr t.rotateX"), "90");
    ZAngle::setUIUnit(ZAngle::kRadians);
    EXPECT_DOUBLE_EQ(number("getAttr t.rotateX"), std::numbers::pi / 2);
}

TEST_F(AttributeCommands, TypedDataNeedsItsTypeAndItsCounts) {
    run("setAttr -type \"string\" n.label \"two words\"");
    EXPECT_EQ(run("getAttr n.label"), "two words");
    run("setAttr n.samples -type doubleArray 3 1 2.5 -4");
    EXPECT_EQ(run("getAttr n.samples"), "1 2.5 -4");
    run("addAttr -ln ids -dt Int32Array n; addAttr -ln dirs -dt vectorArray n; addAttr -ln names -dt "
        "stringArray n");
    run("setAttr n.ids -type Int32Array 2 7 -1");
    EXPECT_EQ(run("getAttr n.ids"), "7 -1");
    run("setAttr n.dirs -type vectorArray 2 1 0 0 0 1 0");
    EXPECT_EQ(run("getAttr n.dirs"), "1 0 0 0 1 0");
    run("setAttr n.names -type stringArray 2 \"a b\" \"\"");
    EXPECT_EQ(run("getAttr -type n.names"), "stringArray");

    EXPECT_EQ(failure("setAttr n.samples -type doubleArray 3 1 2"),
              "setAttr: 'n.samples': expected 3 values after the count 3, found 2");
    EXPECT_EQ(failure("setAttr n.samples -type doubleArray 1 2 3"),
              "setAttr: 'n.samples': 1 value is left over");
    EXPECT_EQ(failure("setAttr n.samples -type Int32Array 1 2"),
              "setAttr: 'n.samples' holds doubleArray data, not Int32Array");
    EXPECT_EQ(failure("setAttr n.samples 1 2"),
              "setAttr: 'n.samples' holds doubleArray data; give -type \"doubleArray\"");
    EXPECT_EQ(failure("setAttr n.weight -type doubleArray 1 2"),
              "setAttr: 'n.weight' is of type double, not a data attribute; leave out -type");
    EXPECT_EQ(failure("setAttr n.samples -type \"floats\" 1 2"), "setAttr: unknown data type \"floats\"");
}

TEST_F(AttributeCommands, BadValuesAreRefusedAndLeaveTheValue) {
    run("setAttr n.mode 5");
    EXPECT_EQ(failure("setAttr n.mode 7"), "setAttr: 'n.mode' has no field 7 (fields: Off=0, On=1, Auto=5)");
    EXPECT_EQ(failure("setAttr n.mode \"Sometimes\""),
              "setAttr: 'n.mode' has no field \"Sometimes\" (fields: Off=0, On=1, Auto=5)");
    EXPECT_EQ(run("getAttr n.mode"), "5");
    EXPECT_EQ(failure("setAttr n.weight \"heavy\""), "setAttr: 'n.weight' takes numbers, found \"heavy\"");
    EXPECT_EQ(failure("setAttr t.translate 1 2"), "setAttr: 't.translate' takes 3 values, found 2");
    EXPECT_EQ(failure("setAttr n.nothing 1"), "setAttr: No object matches name: n.nothing");
    EXPECT_EQ(failure("setAttr ghost.weight 1"), "setAttr: No object matches name: ghost.weight");
    EXPECT_EQ(failure("setAttr n.output 1"), "setAttr: 'n.output' is not writable");
    EXPECT_EQ(failure("setAttr n.message 1"),
              "setAttr: 'n.message' is a message attribute and holds no value");
    EXPECT_EQ(failure("setAttr n.profile 1"),
              "setAttr: 'n.profile' is an array; set its elements one by one (n.profile[0]...)");
    EXPECT_EQ(failure("setAttr n.profile_Position 1"),
              "setAttr: 'n.profile_Position' lies under an array; name the element it belongs to");
    EXPECT_EQ(failure("setAttr -lock true n.weight"), "setAttr: invalid flag '-lock'");
    run("connectAttr t.translateX n.weight");
    EXPECT_EQ(failure("setAttr n.weight 1"),
              "setAttr: 'n.weight' is connected from 't.translateX' and cannot be set");
}

TEST_F(AttributeCommands, UndoRestoresTheValueAndRemovesMadeElements) {
    run("setAttr n.weight 3");
    run("setAttr n.weight 4");
    run("setAttr n.profile[7] 0.5 2");
    EXPECT_EQ(run("getAttr -size n.profile"), "3");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("getAttr -size n.profile"), "2");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("getAttr n.weight"), "3");
    ZGlobal::executeCommand("redo");
    ZGlobal::executeCommand("redo");
    EXPECT_EQ(run("getAttr n.profile[7]"), "0.5 2");
}

TEST_F(AttributeCommands, AddAttrMakesDynamicAttributesOfEachKind) {
    run("addAttr -ln \"gain\" -sn \"gn\" -at \"double\" -dv 0.5 -min 0 -max 2 -k true n");
    EXPECT_EQ(run("getAttr n.gn"), "0.5");
    run("setAttr n.gain 9");
    EXPECT_EQ(run("getAttr n.gain"), "2");
    run("addAttr -ln state -at enum -en \"Low=1:High:Max=10\" -dv 2 n");
    EXPECT_EQ(run("getAttr n.state"), "2");
    EXPECT_EQ(failure("setAttr n.state 3"),
              "setAttr: 'n.state' has no field 3 (fields: Low=1, High=2, Max=10)");
    run("addAttr -ln turn -at doubleAngle -dv 45 n");
    EXPECT_EQ(run("getAttr n.turn"), "45");
    run("addAttr -ln note -dt \"string\" n; setAttr n.note -type \"string\" hi");
    EXPECT_EQ(run("getAttr n.note"), "hi");
    run("addAttr -ln many -at long -m n; setAttr n.many[4] 12");
    EXPECT_EQ(run("getAttr n.many"), "12");
    run("addAttr -ln link -at message n");
    EXPECT_EQ(run("getAttr -type n.link"), "message");
}

TEST_F(AttributeCommands, CompoundsJoinTheNodeOnceTheirChildrenAreDeclared) {
    run("addAttr -ln offset -at double3 n");
    EXPECT_EQ(run("objExists n.offset"), "false");
    run("addAttr -ln offsetX -at double -p offset n; addAttr -ln offsetY -at double -p offset n");
    EXPECT_EQ(run("objExists n.offset"), "false");
    run("addAttr -ln offsetZ -at double -dv 7 -p offset n");
    EXPECT_EQ(run("getAttr n.offset"), "0 0 7");
    run("addAttr -ln pair -at compound -nc 2 -m n");
    run("addAttr -ln first -dt \"string\" -p pair n; addAttr -ln second -at bool -p pair n");
    run("setAttr n.pair[2].second true");
    EXPECT_EQ(run("getAttr n.pair[2].second"), "true");
    EXPECT_EQ(run("getAttr -type n.pair"), "compound");
}

TEST_F(AttributeCommands, AddAttrErrors) {
    EXPECT_EQ(failure("addAttr -at double n"), "addAttr: the attribute needs a long name (-longName)");
    EXPECT_EQ(failure("addAttr -ln weight n"), "addAttr: 'n' already has an attribute named 'weight'");
    EXPECT_EQ(failure("addAttr -ln x -at quaternion n"),
              "addAttr: 'x': unknown attribute type \"quaternion\"");
    EXPECT_EQ(failure("addAttr -ln x -at compound n"),
              "addAttr: a compound needs the number of its children (-numberOfChildren)");
    EXPECT_EQ(failure("addAttr -ln x -at double -p nowhere n"),
              "addAttr: 'nowhere' is no compound waiting for children");
    EXPECT_EQ(failure("addAttr -ln x -at enum n"),
              "addAttr: 'x': an enum needs its fields (-enumName \"A:B:C\")");
    EXPECT_EQ(failure("addAttr -ln x ghost"), "addAttr: No object matches name: ghost");
}

TEST_F(AttributeCommands, UndoOfAddAttrTakesBackTheAttributeAndTheOpenCompound) {
    run("addAttr -ln pair -at double2 n; addAttr -ln a -at double -p pair n");
    run("addAttr -ln b -at double -p pair n");
    EXPECT_EQ(run("objExists n.pair"), "true");
    ZGlobal::executeCommand("undo");
    EXPECT_EQ(run("objExists n.pair"), "false");
    // The compound is open again, waiting for its second child.
    run("addAttr -ln c -at double -dv 3 -p pair n");
    EXPECT_EQ(run("getAttr n.pair"), "0 3");
}

TEST_F(AttributeCommands, GetAttrErrorsAndTypes) {
    EXPECT_EQ(run("getAttr -type t.rotate"), "double3");
    EXPECT_EQ(run("getAttr -type t.rotateX"), "doubleAngle");
    EXPECT_EQ(run("getAttr -type n.mode"), "enum");
    EXPECT_EQ(failure("getAttr n.profile"), "getAttr: 'n.profile' is an array; name one of its elements");
    EXPECT_EQ(failure("getAttr n.weight[2]").find("Invalid plug name: n.weight[2]"), 9u);
    run("setAttr n.input 4");
    EXPECT_EQ(run("getAttr n.output"), "8");
}

} // namespace
