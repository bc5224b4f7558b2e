#include "SceneTest.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZSceneMessage.h>

namespace {

struct Seen {
    std::string message;
    bool reading;
    int version;
    bool nodeExists;
};

std::vector<Seen> g_seen;

template <int Message> void record(void*) {
    ZCommandResult exists;
    ZGlobal::executeCommand("objExists n", exists);
    g_seen.push_back({Message == ZSceneMessage::kBeforeFileRead ? "before" : "after",
                      ZFileIO::isReadingFile(), ZFileIO::currentlyReadingFileVersion(),
                      exists.stringResult() == "true"});
}

class SceneReading : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        g_seen.clear();
        m_ids[0] = ZSceneMessage::addCallback(ZSceneMessage::kBeforeFileRead,
                                              record<ZSceneMessage::kBeforeFileRead>);
        m_ids[1] =
            ZSceneMessage::addCallback(ZSceneMessage::kAfterFileRead, record<ZSceneMessage::kAfterFileRead>);
    }
    void TearDown() override {
        ZMessage::removeCallback(m_ids[0]);
        ZMessage::removeCallback(m_ids[1]);
        SceneTest::TearDown();
    }

private:
    ZCallbackId m_ids[2] = {};
};

TEST_F(SceneReading, CallbacksSeeTheReadBetweenBeforeAndAfterWithTheFilesVersion) {
    write("old.zya", "//Zyvo ASCII scene\nfileInfo \"version\" \"205\";\ncreateNode sceneTestNode -n n;\n");
    ASSERT_TRUE(ZFileIO::open(ZString(path("old.zya"))));
    ASSERT_EQ(g_seen.size(), 2u);
    EXPECT_EQ(g_seen[0].message, "before");
    EXPECT_TRUE(g_seen[0].reading);
    EXPECT_EQ(g_seen[0].version, 205);
    EXPECT_FALSE(g_seen[0].nodeExists);
    EXPECT_EQ(g_seen[1].message, "after");
    EXPECT_TRUE(g_seen[1].reading);
    EXPECT_EQ(g_seen[1].version, 205);
    EXPECT_TRUE(g_seen[1].nodeExists);
    EXPECT_FALSE(ZFileIO::isReadingFile());
    EXPECT_EQ(ZFileIO::currentlyReadingFileVersion(), 0);
}

TEST_F(SceneReading, NewFilesCarryTheLatestVersion) {
    save("new.zya");
    ASSERT_TRUE(ZFileIO::open(ZString(path("new.zya"))));
    ASSERT_EQ(g_seen.size(), 2u);
    EXPECT_EQ(g_seen[0].version, 211);
}

TEST_F(SceneReading, AFileWithoutAVersionIsReadAsTheLatestWithAWarning) {
    write("bare.zya", "createNode transform -n t;\n");
    ASSERT_TRUE(ZFileIO::open(ZString(path("bare.zya"))));
    ASSERT_EQ(g_seen.size(), 2u);
    EXPECT_EQ(g_seen[0].version, 211);
    ASSERT_EQ(warnings().size(), 1u);
    EXPECT_NE(warnings()[0].find("the file states no version; it is read as version 211"), std::string::npos);
}

TEST_F(SceneReading, NodesAreConstructedAfterTheirStoredValuesAreIn) {
    write("three.zya",
          "fileInfo \"version\" \"211\";\n"
          "createNode sceneTestNode -n n;\n"
          "setAttr \"n.profile[0]\" 0 1;\nsetAttr \"n.profile[1]\" 0.5 0;\nsetAttr \"n.profile[2]\" 1 1;\n");
    ASSERT_TRUE(ZFileIO::open(ZString(path("three.zya"))));
    EXPECT_TRUE(SceneTestNode::constructedWhileReading);
    EXPECT_EQ(SceneTestNode::profilePointsAtConstruction, 3u);
    EXPECT_EQ(run("getAttr n.profile[1]"), "0.5 0") << "the node kept the points it was read with";

    write("one.zya",
          "fileInfo \"version\" \"211\";\ncreateNode sceneTestNode -n n;\nsetAttr \"n.profile[0]\" 0 1;\n");
    ASSERT_TRUE(ZFileIO::open(ZString(path("one.zya"))));
    EXPECT_EQ(SceneTestNode::profilePointsAtConstruction, 1u);
    EXPECT_EQ(run("getAttr n.profile[0]"), "0 0") << "too few points: the node put its defaults back";

    run("createNode sceneTestNode -n later");
    EXPECT_FALSE(SceneTestNode::constructedWhileReading);
}

TEST_F(SceneReading, WorkLeftForIdleTimeRunsOnceTheFileIsIn) {
    write("idle.zya", "fileInfo \"version\" \"211\";\n"
                      "createNode transform -n t;\n"
                      "evalDeferred \"createNode transform -n late\";\n"
                      "createNode transform -n u;\n");
    ASSERT_TRUE(ZFileIO::open(ZString(path("idle.zya"))));
    EXPECT_EQ(strings("ls -type transform"), (std::vector<std::string>{"t", "u", "late"}));
}

TEST_F(SceneReading, APluginsNodesNeedThePlugin) {
    oz::NodeTypeInfo info;
    info.name = "pluginThing";
    info.id = 0x7e5c0002u;
    info.creator = [] {
        return new ZPxNode;
    };
    info.initializer = [] {
        return ZStatus(ZStatus::kSuccess);
    };
    info.pluginName = "ThingPlugin";
    ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(info));
    run("createNode pluginThing -n thing");
    const std::string text = save("plugin.zya");
    EXPECT_NE(text.find("requires \"ThingPlugin\" \"unknown\";\n"), std::string::npos);
    EXPECT_TRUE(errors().empty());
    ZFileIO::newFile(true);
    ASSERT_TRUE(oz::NodeTypeRegistry::instance().deregisterType("pluginThing"));

    log().clear();
    EXPECT_FALSE(ZFileIO::open(ZString(path("plugin.zya"))));
    ASSERT_FALSE(warnings().empty());
    EXPECT_NE(warnings()[0].find("requires: the plug-in \"ThingPlugin\""), std::string::npos);
    EXPECT_NE(errors()[errors().size() - 2].find("createNode: Unknown node type: pluginThing"),
              std::string::npos);
}

} // namespace
