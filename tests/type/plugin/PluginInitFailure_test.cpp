#include "PluginTesting.h"

namespace typetest {
namespace {

// Stands in for the plug-in's scripts: an empty package, so that they do not
// register their own "typeInitPlugin", and a "typeInitPlugin" that notes what
// was registered by the time it ran and fails.
constexpr char kFailingInitScript[] = R"(import __main__, sys, types
import zyvo
import zyvo.cmds as cmds


def typeInitPlugin():
    __main__.typesAtInit = cmds.pluginInfo("Type", q=True, dependNode=True)
    __main__.commandsAtInit = cmds.pluginInfo("Type", q=True, command=True)
    raise RuntimeError("menus could not be built")


zyvo.registerProcedure("typeInitPlugin", typeInitPlugin)
sys.modules["zyvo.app.type"] = types.ModuleType("zyvo.app.type")
)";

class PluginInitFailure : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(ZFileIO::newFile(true));
        python(kFailingInitScript);
    }

    void TearDown() override { python("zyvo.deregisterProcedure('typeInitPlugin')"); }
};

TEST_F(PluginInitFailure, AFailedInitScriptFailsTheLoadAfterEveryRegistration) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("loadPlugin Type"));
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_NE(errors.find("\nAPI error detected in pluginMain at line "), std::string::npos) << errors;
    EXPECT_EQ(python("typesAtInit"),
              "['type', 'shellDeformer', 'vectorAdjust', 'vectorExtrude', 'typeExtrude', 'svgToPoly', "
              "'typeManip', 'displayPoints', 'objectGrpToComp']");
    EXPECT_EQ(python("sorted(commandsAtInit)"), "['assignShaderToType', 'typeManipContextCommand']");
    // The host takes back what the plug-in registered before it failed.
    EXPECT_EQ(number("pluginInfo -q -loaded Type"), 0);
    EXPECT_FALSE(run("createNode type"));
}

} // namespace
} // namespace typetest
