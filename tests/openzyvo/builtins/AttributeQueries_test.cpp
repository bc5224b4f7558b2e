#include "SceneTest.h"

#include <OpenZyvo/ZDoubleArray.h>
#include <algorithm>

namespace {

// listAttr, attributeQuery and getAttr -type/-size, asked in the command
// language and through zyvo.cmds.
class AttributeQueries : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode sceneTestNode -n n");
        python("import zyvo.cmds as cmds");
    }

    // The repr() of a Python expression's value.
    static std::string python(const std::string& code) {
        ZString result;
        EXPECT_TRUE(ZGlobal::executePythonCommand(ZString(code), result))
            << code << "\n"
            << (errors().empty() ? "" : errors().back());
        return result.asStdString();
    }
    static std::string pythonRepr(const std::string& expression) {
        return python("repr(" + expression + ")");
    }
    static std::vector<double> numbers(const std::string& script) {
        ZCommandResult result;
        EXPECT_TRUE(ZGlobal::executeCommand(ZString(script), result)) << script;
        ZDoubleArray values;
        EXPECT_TRUE(result.getResult(values)) << script;
        return {values.begin(), values.end()};
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(AttributeQueries, ListAttrFiltersByWhatAttributesAllow) {
    EXPECT_EQ(strings("listAttr -k n"), (Names{"weight", "input"}));
    EXPECT_EQ(strings("listAttr -r n"), Names{"output"});
    EXPECT_EQ(strings("listAttr -a n"), Names{"samples"});
    EXPECT_EQ(strings("listAttr -st \"w*\" -st \"in*\" n"), (Names{"weight", "input"}));
    EXPECT_EQ(strings("listAttr -sn -st \"w*\" n"), Names{"wt"});
    EXPECT_EQ(strings("listAttr -k -w -st \"i*\" n"), Names{"input"});
    EXPECT_TRUE(strings("listAttr -ud n").empty());
    run("addAttr -ln \"extra\" -at double n");
    EXPECT_EQ(strings("listAttr -ud n"), Names{"extra"});

    const Names all = strings("listAttr n");
    for (const char* name : {"message", "weight", "mode", "label", "samples", "profile", "spin", "extra"})
        EXPECT_NE(std::find(all.begin(), all.end(), name), all.end()) << name;
}

TEST_F(AttributeQueries, ListAttrNamesAttributesBelowArraysFromTheTopAndListsElementsWithMulti) {
    const Names family = strings("listAttr n.profile");
    ASSERT_GT(family.size(), 1u);
    EXPECT_EQ(family.front(), "profile");
    for (std::size_t i = 1; i < family.size(); ++i)
        EXPECT_EQ(family[i].rfind("profile.", 0), 0u) << family[i];

    // The curve holds two points, so two elements with their children.
    const Names elements = strings("listAttr -m n.profile");
    EXPECT_EQ(std::count(elements.begin(), elements.end(), "profile[0]"), 1);
    EXPECT_EQ(std::count(elements.begin(), elements.end(), "profile[1]"), 1);
    EXPECT_EQ(elements.size(), family.size() + 2 * family.size());
}

TEST_F(AttributeQueries, ListAttrWorksOnTheSelectionAndReportsWhatItCannotFind) {
    run("select n");
    EXPECT_EQ(strings("listAttr -r"), Names{"output"});
    EXPECT_EQ(failure("listAttr ghost"), "listAttr: No object matches name: ghost");
    EXPECT_EQ(failure("listAttr n.ghost"), "listAttr: No object matches name: n.ghost");
    EXPECT_EQ(failure("select -cl; listAttr"),
              "listAttr: nothing is selected: name the nodes or select them");
}

TEST_F(AttributeQueries, ListAttrFromPython) {
    EXPECT_EQ(pythonRepr("cmds.listAttr('n', keyable=True)"), "['weight', 'input']");
    EXPECT_EQ(pythonRepr("cmds.listAttr('n', string='w*', shortNames=True)"), "['wt']");
    EXPECT_EQ(pythonRepr("cmds.listAttr('n', readOnly=True, string=['o*', 'x*'])"), "['output']");
}

TEST_F(AttributeQueries, AttributeQueryAnswersTypeRangeDefaultAndProperties) {
    EXPECT_EQ(run("attributeQuery -n n -ex weight"), "true");
    EXPECT_EQ(run("attributeQuery -n n -ex ghost"), "false");
    EXPECT_EQ(run("attributeQuery -n n -at weight"), "double");
    EXPECT_EQ(run("attributeQuery -n n -at mode"), "enum");
    EXPECT_EQ(run("attributeQuery -n n -at label"), "typed");
    EXPECT_EQ(run("attributeQuery -n n -at spin"), "doubleAngle");
    EXPECT_EQ(numbers("attributeQuery -n n -min weight"), std::vector<double>{0.0});
    EXPECT_EQ(numbers("attributeQuery -n n -max wt"), std::vector<double>{10.0});
    EXPECT_EQ(run("attributeQuery -n n -mne input"), "false");
    EXPECT_EQ(numbers("attributeQuery -n n -ld weight"), std::vector<double>{1.0});
    EXPECT_EQ(numbers("attributeQuery -n n -ld mode"), std::vector<double>{1.0});
    EXPECT_EQ(strings("attributeQuery -n n -le mode"), Names{"Off:On:Auto=5"});
    EXPECT_EQ(run("attributeQuery -n n -k weight"), "true");
    EXPECT_EQ(run("attributeQuery -n n -w output"), "false");
    EXPECT_EQ(run("attributeQuery -n n -s output"), "false");
    EXPECT_EQ(run("attributeQuery -n n -m profile"), "true");
    EXPECT_EQ(strings("attributeQuery -n n -aff input"), Names{"output"});
}

TEST_F(AttributeQueries, AttributeQueryGivesNumbersInTheUsersUnits) {
    run("addAttr -ln \"turn\" -at doubleAngle -min -90 -max 90 -dv 45 n");
    EXPECT_NEAR(numbers("attributeQuery -n n -max turn").at(0), 90.0, 1e-9);
    EXPECT_NEAR(numbers("attributeQuery -n n -ld turn").at(0), 45.0, 1e-9);
    run("currentUnit -a radian");
    EXPECT_NEAR(numbers("attributeQuery -n n -ld turn").at(0), 0.785398, 1e-6);
}

TEST_F(AttributeQueries, AttributeQueryWalksCompoundsAndStaticAttributesOfTypes) {
    run("createNode transform -n t");
    EXPECT_EQ(strings("attributeQuery -n t -lc translate"),
              (Names{"translateX", "translateY", "translateZ"}));
    EXPECT_EQ(strings("attributeQuery -n t -lp ty"), Names{"translate"});
    EXPECT_EQ(strings("attributeQuery -n t -ls ty"), (Names{"translateX", "translateZ"}));
    EXPECT_EQ(run("attributeQuery -n t -sn translateY"), "ty");
    EXPECT_EQ(run("attributeQuery -n t -ln ty"), "translateY");
    EXPECT_EQ(run("attributeQuery -n t -nn rotateOrder"), "Rotate Order");
    EXPECT_EQ(run("attributeQuery -n t -nn ty"), "Translate Y");
    EXPECT_EQ(numbers("attributeQuery -n t -ld scale"), (std::vector<double>{1, 1, 1}));
    EXPECT_EQ(run("attributeQuery -type transform -ex tx"), "true");
    EXPECT_EQ(run("attributeQuery -type sceneTestNode -ex tx"), "false");
}

TEST_F(AttributeQueries, AttributeQueryMisuseIsOneClearError) {
    EXPECT_EQ(failure("attributeQuery -n n weight"),
              "attributeQuery: give what to query, such as -exists or -attributeType");
    EXPECT_EQ(failure("attributeQuery -n n -k -h weight"), "attributeQuery: give one query at a time");
    EXPECT_EQ(failure("attributeQuery -k weight"), "attributeQuery: give either -node or -type");
    EXPECT_EQ(failure("attributeQuery -n ghost -k weight"), "attributeQuery: No object matches name: ghost");
    EXPECT_EQ(failure("attributeQuery -type nope -k weight"), "attributeQuery: Unknown node type: nope");
    EXPECT_EQ(failure("attributeQuery -n n -k ghost"), "attributeQuery: 'n' has no attribute 'ghost'");
    EXPECT_EQ(failure("attributeQuery -n n -min input"), "attributeQuery: 'input' has no minimum set");
    EXPECT_EQ(failure("attributeQuery -n n -le weight"), "attributeQuery: 'weight' is not an enum");
    EXPECT_EQ(failure("attributeQuery -n n -ld label"), "attributeQuery: 'label' has no numeric default");
}

TEST_F(AttributeQueries, AttributeQueryFromPython) {
    EXPECT_EQ(pythonRepr("cmds.attributeQuery('weight', node='n', exists=True)"), "True");
    EXPECT_EQ(pythonRepr("cmds.attributeQuery('weight', node='n', maximum=True)"), "[10.0]");
    EXPECT_EQ(pythonRepr("cmds.attributeQuery('mode', node='n', listEnum=True)"), "['Off:On:Auto=5']");
    EXPECT_EQ(pythonRepr("cmds.attributeQuery('spin', node='n', attributeType=True)"), "'doubleAngle'");
    EXPECT_EQ(python("try:\n"
                     "    cmds.attributeQuery('ghost', node='n', keyable=True)\n"
                     "except RuntimeError as error:\n"
                     "    message = str(error)"),
              "");
    EXPECT_EQ(pythonRepr("message"), "\"attributeQuery: 'n' has no attribute 'ghost'\"");
}

TEST_F(AttributeQueries, GetAttrGivesTypesAndSizes) {
    EXPECT_EQ(run("getAttr -type n.samples"), "doubleArray");
    EXPECT_EQ(run("getAttr -type n.label"), "string");
    EXPECT_EQ(run("getAttr -type n.spin"), "doubleAngle");
    EXPECT_EQ(number("getAttr -size n.profile"), 2.0);
    run("setAttr n.samples -type doubleArray 3 1 2 3");
    EXPECT_EQ(number("getAttr -size n.samples"), 3.0);
    EXPECT_EQ(number("getAttr -size n.weight"), 1.0);
    EXPECT_EQ(pythonRepr("cmds.getAttr('n.weight', type=True)"), "'double'");
    EXPECT_EQ(pythonRepr("cmds.getAttr('n.profile', size=True)"), "2");
}
