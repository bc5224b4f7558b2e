#include "commands/MessageLog.h"

#include <OpenZyvoHost/ZHostMessages.h>
#include <algorithm>

namespace ZHost {

namespace {

oz::cmd::MessageLog& messageLog() {
    return oz::cmd::MessageLog::instance();
}

} // namespace

void showMessages(bool shown) {
    messageLog().setStreamOutput(shown);
}

std::size_t errorCount() {
    return messageLog().errorCount();
}

std::vector<std::string> errorsSince(std::size_t errorsBefore) {
    const std::size_t count = messageLog().errorCount();
    if (count <= errorsBefore)
        return {};
    // The log keeps the latest messages only, and a clear() forgets them
    // without resetting the count: the newest ones are the fresh ones.
    std::vector<std::string> errors = messageLog().texts(oz::cmd::MessageLog::Kind::Error);
    const std::size_t fresh = std::min(count - errorsBefore, errors.size());
    errors.erase(errors.begin(), errors.end() - static_cast<std::ptrdiff_t>(fresh));
    return errors;
}

} // namespace ZHost
