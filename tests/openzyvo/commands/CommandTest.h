#pragma once

#include "commands/CommandRegistry.h"
#include "commands/IdleQueue.h"
#include "commands/MessageLog.h"
#include "commands/ProcedureRegistry.h"
#include "commands/UndoQueue.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

// Keeps the message log quiet and empty, and removes what a test registered.
class CommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        log().setStreamOutput(false);
        log().clear();
        oz::cmd::UndoQueue::instance().clear();
    }

    void TearDown() override {
        oz::cmd::CommandRegistry::instance().removeOwnedBy(kOwner);
        oz::cmd::ProcedureRegistry::instance().removeOwnedBy(kOwner);
        oz::cmd::UndoQueue::instance().clear();
        oz::cmd::IdleQueue::instance().clear();
    }

    template <typename Command> void addCommand(const std::string& name, oz::cmd::SyntaxCreator syntax = {}) {
        ASSERT_TRUE(oz::cmd::CommandRegistry::instance().add(
            {name, [] { return std::make_unique<Command>(); }, std::move(syntax), kOwner}));
    }

    void addProcedure(const std::string& name, oz::cmd::Procedure procedure) {
        oz::cmd::ProcedureRegistry::OwnerScope owner(kOwner);
        ASSERT_TRUE(oz::cmd::ProcedureRegistry::instance().add(name, std::move(procedure)));
    }

    static oz::cmd::MessageLog& log() { return oz::cmd::MessageLog::instance(); }
    static std::vector<std::string> errors() { return log().texts(oz::cmd::MessageLog::Kind::Error); }
    static std::vector<std::string> infos() { return log().texts(oz::cmd::MessageLog::Kind::Info); }

    static constexpr const char* kOwner = "commandTests";
};
