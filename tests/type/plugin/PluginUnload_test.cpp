#include "PluginTesting.h"

#include <OpenZyvoRender/ZDrawRegistry.h>

namespace typetest {
namespace {

constexpr char kPointsClassification[] = "drawdb/geometry/displayPointsDrawManager";
constexpr char kPointsRegistrant[] = "displayPointsDrawManagerPlugin";

class PluginUnload : public TypePluginTest {
protected:
    // Stands in for the plug-in's own "typeUninitPlugin" and notes in
    // `uninitSaw` what was still registered when it ran.
    static void recordUninit() {
        python("import zyvo, zyvo.cmds, __main__\n"
               "__main__.uninitSaw = None\n"
               "def recordUninit():\n"
               "    __main__.uninitSaw = (zyvo.cmds.pluginInfo('Type', q=True, dependNode=True),\n"
               "                          zyvo.cmds.pluginInfo('Type', q=True, command=True))\n"
               "zyvo.registerProcedure('typeUninitPlugin', recordUninit)");
    }
};

TEST_F(PluginUnload, RemovesEverythingBeforeRunningItsUninitScript) {
    recordUninit();
    ASSERT_TRUE(run("unloadPlugin Type"));

    EXPECT_EQ(python("__main__.uninitSaw"), "([], [])");
    EXPECT_FALSE(ZHWRender::ZDrawRegistry::hasDrawOverride(kPointsClassification));
    EXPECT_FALSE(run("createNode type"));
    EXPECT_FALSE(run("typeCreateText"));
}

TEST_F(PluginUnload, CanBeLoadedAgainAfterwards) {
    ASSERT_TRUE(run("unloadPlugin Type"));
    ASSERT_TRUE(run("loadPlugin Type"));
    EXPECT_EQ(text("createNode type"), "type1");
    EXPECT_TRUE(run("typeCreateText"));
}

// The draw override goes after every node type and command but before the
// script; when it cannot go, unloading stops there and fails, and the host
// takes back what is left. The plug-in loads again afterwards.
TEST_F(PluginUnload, StopsWhenTheDrawOverrideCannotBeRemoved) {
    recordUninit();
    ASSERT_TRUE(
        ZHWRender::ZDrawRegistry::deregisterDrawOverrideCreator(kPointsClassification, kPointsRegistrant));

    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("unloadPlugin Type"));
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_NE(errors.find("deregisterGeometryOverrideCreator Point: "), std::string::npos) << errors;
    EXPECT_EQ(python("repr(__main__.uninitSaw)"), "None");

    ASSERT_TRUE(run("loadPlugin Type"));
    EXPECT_EQ(text("createNode type"), "type1");
    EXPECT_TRUE(ZHWRender::ZDrawRegistry::hasDrawOverride(kPointsClassification));
}

// The host must learn that the plug-in's scripts could not take their menus
// down; everything else is gone by then, and the plug-in loads again.
TEST_F(PluginUnload, AFailedUninitScriptFailsTheUnload) {
    python("import zyvo\n"
           "def failingUninit():\n"
           "    raise RuntimeError('menus could not be removed')\n"
           "zyvo.registerProcedure('typeUninitPlugin', failingUninit)");

    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("unloadPlugin Type"));
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_NE(errors.find("\nAPI error detected in pluginMain at line "), std::string::npos) << errors;
    EXPECT_EQ(number("pluginInfo -q -loaded Type"), 0);
    EXPECT_FALSE(ZHWRender::ZDrawRegistry::hasDrawOverride(kPointsClassification));
    ASSERT_TRUE(run("loadPlugin Type"));
    EXPECT_EQ(text("createNode type"), "type1");
}

} // namespace
} // namespace typetest
