#pragma once

#include "commands/Interpreter.h"
#include "commands/MessageLog.h"
#include "commands/UndoQueue.h"
#include "graph/Graph.h"
#include "plugins/PluginRegistry.h"
#include "plugins/SearchPaths.h"

#include <gtest/gtest.h>
#include <string>

// Finds the test plug-ins and their scripts, keeps the log quiet, and leaves
// no node and no plug-in behind.
class PluginTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const bool added = [] {
            oz::plugins::SearchPaths::instance().addPluginFolder(ZYVO_TEST_PLUGIN_DIR);
            oz::plugins::SearchPaths::instance().addScriptFolder(ZYVO_TEST_DATA_DIR "/plugins");
            return true;
        }();
        (void)added;
    }

    void SetUp() override {
        log().setStreamOutput(false);
        log().clear();
    }

    void TearDown() override {
        for (const auto& node : std::vector(oz::Graph::instance().nodes()))
            if (!node->type->pluginName.isEmpty())
                oz::Graph::instance().deleteNode(*node);
        for (const std::string& name : oz::plugins::PluginRegistry::instance().names())
            oz::plugins::PluginRegistry::instance().unload(name);
        oz::cmd::UndoQueue::instance().clear();
    }

    // Runs a script; its result as text.
    static oz::cmd::ScriptOutcome run(const std::string& script, bool undoable = false) {
        return oz::cmd::runScript(script, {false, undoable});
    }
    static std::string result(const std::string& script) {
        const oz::cmd::ScriptOutcome outcome = run(script);
        EXPECT_TRUE(outcome.status) << script << ": " << lastError();
        return oz::cmd::toText(outcome.result);
    }

    static oz::cmd::MessageLog& log() { return oz::cmd::MessageLog::instance(); }
    static std::string lastError() {
        const auto errors = log().texts(oz::cmd::MessageLog::Kind::Error);
        return errors.empty() ? std::string() : errors.back();
    }
};
