#include "scene/CommandMessages.h"

#include "commands/MessageLog.h"
#include "scene/ReadContext.h"

namespace oz::scene {

namespace {

std::string located(std::string_view command, const std::string& text) {
    std::string message;
    if (const ReadContext* context = ReadContext::active())
        message = context->where();
    if (!command.empty()) {
        message += command;
        message += ": ";
    }
    return message + text;
}

} // namespace

void reportError(std::string_view command, const std::string& text) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Error, located(command, text));
}

void reportWarning(std::string_view command, const std::string& text) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Warning, located(command, text));
}

std::string noObjectMatches(const std::string& name) {
    return "No object matches name: " + name;
}

std::string quoted(const std::string& name) {
    return "'" + name + "'";
}

} // namespace oz::scene
