#pragma once

#include "SceneTestNode.h"
#include "commands/MessageLog.h"

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZCommandResult.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZTime.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

// A new scene in the default units for each test, a quiet message log, and
// a folder of its own for files.
class SceneTest : public ::testing::Test {
protected:
    void SetUp() override {
        SceneTestNode::registerType();
        log().setStreamOutput(false);
        ZDistance::setUIUnit(ZDistance::kCentimeters);
        ZAngle::setUIUnit(ZAngle::kDegrees);
        ZTime::setUIUnit(ZTime::kFilm);
        ASSERT_TRUE(ZFileIO::newFile(true));
        log().clear();
        m_folder =
            std::filesystem::temp_directory_path() /
            ("zyvo_scene_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override {
        std::filesystem::remove_all(m_folder);
        ZFileIO::newFile(true);
    }

    static oz::cmd::MessageLog& log() { return oz::cmd::MessageLog::instance(); }
    static std::vector<std::string> errors() { return log().texts(oz::cmd::MessageLog::Kind::Error); }
    static std::vector<std::string> warnings() { return log().texts(oz::cmd::MessageLog::Kind::Warning); }

    // Runs a script that must succeed; returns its result as the log shows it.
    static std::string run(const std::string& script) {
        ZCommandResult result;
        const ZStatus status = ZGlobal::executeCommand(ZString(script), result, false, true);
        EXPECT_TRUE(status) << script << "\n" << (errors().empty() ? "" : errors().back());
        return result.stringResult().asStdString();
    }
    // Runs a script that must fail; returns the last error it reported.
    static std::string failure(const std::string& script) {
        log().clear();
        EXPECT_FALSE(ZGlobal::executeCommand(ZString(script), false, true)) << script;
        return errors().empty() ? std::string() : errors().back();
    }
    static double number(const std::string& script) {
        ZCommandResult result;
        EXPECT_TRUE(ZGlobal::executeCommand(ZString(script), result)) << script;
        double value = 0.0;
        EXPECT_TRUE(result.getResult(value)) << script;
        return value;
    }
    static std::vector<std::string> strings(const std::string& script) {
        ZCommandResult result;
        EXPECT_TRUE(ZGlobal::executeCommand(ZString(script), result)) << script;
        ZStringArray values;
        result.getResult(values);
        std::vector<std::string> out;
        for (unsigned int i = 0; i < values.length(); ++i)
            out.push_back(values[i].asStdString());
        return out;
    }

    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    void write(const std::string& name, const std::string& text) const { std::ofstream(path(name)) << text; }
    std::string read(const std::string& name) const {
        std::ifstream file(path(name));
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    // Saves the scene to `name` and returns the file's text.
    std::string save(const std::string& name) const {
        EXPECT_TRUE(ZFileIO::save(ZString(path(name))));
        return read(name);
    }

private:
    std::filesystem::path m_folder;
};
