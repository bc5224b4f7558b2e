#include "scene/CommandMessages.h"

#include "commands/MessageLog.h"

namespace oz::scene {

namespace {

std::string named(std::string_view command, const std::string& text) {
    if (command.empty())
        return text;
    return std::string(command) + ": " + text;
}

} // namespace

void reportError(std::string_view command, const std::string& text) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Error, named(command, text));
}

void reportWarning(std::string_view command, const std::string& text) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Warning, named(command, text));
}

std::string noObjectMatches(const std::string& name) {
    return "No object matches name: " + name;
}

std::string quoted(const std::string& name) {
    return "'" + name + "'";
}

} // namespace oz::scene
