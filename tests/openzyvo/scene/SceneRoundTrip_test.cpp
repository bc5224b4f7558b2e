#include "SceneTest.h"
#include "scene/FileState.h"

#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>

namespace {

constexpr const char* kRichScene = R"(
createNode transform -n group;
createNode transform -n box -p group;
setAttr box.translate 1 2 3;
setAttr box.rotate 33.3 0 -90;
createNode sceneTestNode -n n;
setAttr n.weight 2.5;
setAttr n.mode 5;
setAttr -type "string" n.label "say \"hi\"\nbye";
setAttr n.samples -type doubleArray 3 0.1 -2 1e-300;
setAttr n.profile[0] 0 0;
setAttr n.profile[1] 0.5 0.25;
setAttr n.profile[4] 1 1;
setAttr n.spin 45;
addAttr -ln gain -at double -dv 0.5 -min 0 -max 2 -k true n;
setAttr n.gain 1.5;
addAttr -ln state -at enum -en "Low=1:High:Max=10" -dv 2 n;
addAttr -ln note -dt "string" n;
setAttr n.note -type "string" "x";
addAttr -ln ids -dt Int32Array n;
setAttr n.ids -type Int32Array 3 1 2 3;
addAttr -ln names -dt stringArray n;
setAttr n.names -type stringArray 2 "a" "b c";
addAttr -ln dirs -dt vectorArray n;
setAttr n.dirs -type vectorArray 1 1 2 3;
addAttr -ln offset -at double3 n;
addAttr -ln offsetX -at double -p offset n;
addAttr -ln offsetY -at double -p offset n;
addAttr -ln offsetZ -at double -p offset n;
setAttr n.offset 1 2 3;
addAttr -ln pair -at compound -nc 2 -m n;
addAttr -ln first -dt "string" -p pair n;
addAttr -ln second -at bool -p pair n;
setAttr -type "string" n.pair[3].first "p";
setAttr n.pair[3].second true;
addAttr -ln many -at long -m n;
setAttr n.many[0] 0;
setAttr n.many[5] 7;
createNode sceneTestNode -n m;
connectAttr n.output m.input;
connectAttr time1.outTime m.weight;
setKeyframe -t 1 -v 2 n.input;
setKeyframe -t 11 -v 6 n.input;
createNode mesh -n shape -p group;
setAttr shape.inMesh -type "mesh" 7 0 0 0 4 0 0 4 4 0 0 4 0 1 1 0 2 3 0 3 1 0 1 2 4 0 1 2 3 3 4 5 6;
currentTime 7;
)";

class SceneRoundTrip : public SceneTest {
protected:
    static ZPlug plug(const char* name) {
        ZSelectionList list;
        EXPECT_TRUE(list.add(name)) << name;
        ZPlug found;
        list.getPlug(0, found);
        return found;
    }
};

TEST_F(SceneRoundTrip, EveryStoredValueAttributeConnectionAndKeyComesBack) {
    run(kRichScene);
    const double rotateX = plug("box.rotateX").asDouble();
    const std::string saved = save("rich.zya");
    ASSERT_TRUE(ZFileIO::newFile(true));
    ASSERT_EQ(run("objExists n"), "false");

    ASSERT_TRUE(ZFileIO::open(ZString(path("rich.zya")))) << (errors().empty() ? "" : errors().back());
    EXPECT_EQ(strings("ls -l box"), std::vector<std::string>{"|group|box"});
    EXPECT_EQ(run("getAttr box.translate"), "1 2 3");
    EXPECT_EQ(plug("box.rotateX").asDouble(), rotateX) << "angles come back to the last bit";
    EXPECT_EQ(run("getAttr n.weight"), "2.5");
    EXPECT_EQ(run("getAttr n.mode"), "5");
    EXPECT_EQ(run("getAttr n.label"), "say \"hi\"\nbye");
    EXPECT_EQ(run("getAttr n.samples"), "0.1 -2 1e-300");
    EXPECT_EQ(run("getAttr -size n.profile"), "3");
    EXPECT_EQ(run("getAttr n.profile[0]"), "0 0");
    EXPECT_EQ(run("getAttr n.profile[4]"), "1 1");
    EXPECT_EQ(run("getAttr n.spin"), "45");
    EXPECT_EQ(run("getAttr n.gain"), "1.5");
    EXPECT_EQ(run("getAttr n.state"), "2") << "the default came back";
    EXPECT_EQ(failure("setAttr n.state 3"),
              "setAttr: 'n.state' has no field 3 (fields: Low=1, High=2, Max=10)");
    EXPECT_EQ(run("getAttr n.note"), "x");
    EXPECT_EQ(run("getAttr n.ids"), "1 2 3");
    EXPECT_EQ(strings("getAttr n.names"), (std::vector<std::string>{"a", "b c"}));
    EXPECT_EQ(run("getAttr n.dirs"), "1 2 3");
    EXPECT_EQ(run("getAttr n.offset"), "1 2 3");
    EXPECT_EQ(run("getAttr n.pair[3].first"), "p");
    EXPECT_EQ(run("getAttr n.pair[3].second"), "true");
    EXPECT_EQ(run("getAttr n.many"), "0 7") << "an element at its default still exists";
    EXPECT_EQ(strings("listConnections -p true -c true m"),
              (std::vector<std::string>{"m.input", "n.output", "m.weight", "time1.outTime"}));
    EXPECT_EQ(run("getAttr -time 1 n.input"), "2");
    EXPECT_EQ(run("getAttr -time 11 n.input"), "6");
    EXPECT_EQ(run("currentTime -q"), "7");
    EXPECT_EQ(run("polyEvaluate -f -t -s shape"), "1 7 1");

    EXPECT_EQ(save("again.zya"), saved) << "a scene saves to the same text after a round trip";
    EXPECT_EQ(run("setAttr n.gain 9; getAttr n.gain"), "2") << "the maximum came back";
}

TEST_F(SceneRoundTrip, TheFileIsReadableCommandsInCreationOrder) {
    run("createNode transform -n a; createNode sceneTestNode -n b; setAttr b.weight 3;"
        "addAttr -ln extra -at long -dv 4 b; connectAttr a.translateX b.input");
    EXPECT_EQ(save("small.zya"), "//Zyvo ASCII scene\n"
                                 "fileInfo \"version\" \"211\";\n"
                                 "currentUnit -l \"cm\" -a \"deg\" -t \"film\";\n"
                                 "createNode transform -n \"a\";\n"
                                 "createNode sceneTestNode -n \"b\";\n"
                                 "addAttr -ln \"extra\" -at \"long\" -dv 4 \"b\";\n"
                                 "setAttr \"b.weight\" 3;\n"
                                 "setAttr \"b.profile[0]\" 0 0;\n"
                                 "setAttr \"b.profile[1]\" 1 1;\n"
                                 "connectAttr \"a.translateX\" \"b.input\";\n");
}

TEST_F(SceneRoundTrip, PythonAndTheCommandLanguageBuildTheSameScene) {
    ASSERT_TRUE(
        ZGlobal::executePythonCommand("import zyvo.cmds as cmds\n"
                                      "cmds.createNode('transform', n='group')\n"
                                      "cmds.createNode('transform', n='box', p='group')\n"
                                      "cmds.setAttr('box.translate', 1, 2, 3)\n"
                                      "cmds.createNode('sceneTestNode', n='n')\n"
                                      "cmds.setAttr('n.mode', 5)\n"
                                      "cmds.setAttr('n.label', 'hello', type='string')\n"
                                      "cmds.setAttr('n.samples', 3, [0.5, 1, 2], type='doubleArray')\n"
                                      "cmds.addAttr('n', ln='gain', at='double', dv=0.5, k=True)\n"
                                      "cmds.setAttr('n.gain', 1.5)\n"
                                      "cmds.addAttr('n', ln='state', at='enum', en='Low=1:High')\n"
                                      "cmds.connectAttr('n.output', 'box.translateX', f=True)\n"
                                      "cmds.setKeyframe('n.weight', t=1, v=2)\n"
                                      "cmds.setKeyframe('n.weight', t=5, v=3)\n"))
        << (errors().empty() ? "" : errors().back());
    const std::string fromPython = save("python.zya");
    ASSERT_TRUE(ZFileIO::newFile(true));
    run("createNode transform -n group;"
        "createNode transform -n box -p group;"
        "setAttr box.translate 1 2 3;"
        "createNode sceneTestNode -n n;"
        "setAttr n.mode 5;"
        "setAttr n.label -type \"string\" hello;"
        "setAttr n.samples -type doubleArray 3 0.5 1 2;"
        "addAttr -ln gain -at double -dv 0.5 -k true n;"
        "setAttr n.gain 1.5;"
        "addAttr -ln state -at enum -en \"Low=1:High\" n;"
        "connectAttr -f n.output box.translateX;"
        "setKeyframe -t 1 -v 2 n.weight;"
        "setKeyframe -t 5 -v 3 n.weight");
    EXPECT_EQ(save("language.zya"), fromPython);
}

TEST_F(SceneRoundTrip, AFileReadsBackInTheUnitsItWasWrittenIn) {
    run("currentUnit -l mm -a rad; createNode transform -n t; setAttr t.translateX 10; setAttr t.rotateY "
        "1.5");
    save("units.zya");
    run("currentUnit -l cm -a deg");
    ASSERT_TRUE(ZFileIO::open(ZString(path("units.zya"))));
    EXPECT_EQ(run("currentUnit -q -l"), "mm");
    EXPECT_EQ(run("getAttr t.translateX"), "10");
    EXPECT_EQ(run("currentUnit -l cm -a deg; getAttr t.translateX"), "1");
    EXPECT_NEAR(number("getAttr t.rotateY"), 85.943669, 1e-6);
}

TEST_F(SceneRoundTrip, TheFileCommandSavesOpensAndGuardsUnsavedChanges) {
    run("createNode transform -n keep");
    const std::string file = path("cmd.zya");
    EXPECT_EQ(run("file -rename \"" + file + "\"; file -save"), file);
    EXPECT_EQ(run("file -q -modified"), "false");
    run("createNode transform -n extra");
    EXPECT_EQ(run("file -q -modified"), "true");
    EXPECT_EQ(failure("file -new"),
              "file: the scene has changes that were not saved; use -force to discard them");
    EXPECT_EQ(failure("file -open \"" + file + "\""),
              "file: the scene has changes that were not saved; use -force to discard them");
    EXPECT_EQ(run("file -f -open \"" + file + "\""), file);
    EXPECT_EQ(strings("ls -type transform"), std::vector<std::string>{"keep"});
    EXPECT_EQ(run("file -q -sceneName"), file);
    run("file -f -new");
    EXPECT_EQ(strings("ls"), std::vector<std::string>{"time1"});
    EXPECT_EQ(run("file -q -sceneName"), "");
    EXPECT_EQ(failure("file -save"), "The scene has no file name yet; give one to save it under");
    EXPECT_EQ(failure("file -rename x.zya -save -type binary"),
              "file: unknown file type \"binary\" (scenes are saved as \"zyvoAscii\")");
    EXPECT_EQ(failure("file -f -open \"" + path("missing.zya") + "\""),
              "Cannot open the scene file \"" + path("missing.zya") + "\": No such file or directory");
}

TEST_F(SceneRoundTrip, AFreshSessionHasNothingToLose) {
    oz::scene::FileState::instance().cleanGeneration = 0; // as when the host starts
    EXPECT_EQ(run("ls; file -q -modified"), "false");
    EXPECT_EQ(run("createNode transform; file -q -modified"), "true");
}

} // namespace
