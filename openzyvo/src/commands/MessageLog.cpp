#include "commands/MessageLog.h"

#include <cstdio>

namespace oz::cmd {

namespace {

// Enough history for any test or for the host to show the last messages,
// without growing for the whole life of a long session.
constexpr std::size_t kKeptMessages = 10000;

void write(MessageLog::Kind kind, const std::string& text) {
    switch (kind) {
    case MessageLog::Kind::Error:
        std::fprintf(stderr, "// Error: %s\n", text.c_str());
        std::fflush(stderr);
        break;
    case MessageLog::Kind::Warning:
        std::fprintf(stderr, "// Warning: %s\n", text.c_str());
        std::fflush(stderr);
        break;
    case MessageLog::Kind::Result:
        std::fprintf(stdout, "// Result: %s //\n", text.c_str());
        std::fflush(stdout);
        break;
    case MessageLog::Kind::Info:
    case MessageLog::Kind::Echo:
        std::fprintf(stdout, "%s\n", text.c_str());
        std::fflush(stdout);
        break;
    }
}

} // namespace

MessageLog& MessageLog::instance() {
    static MessageLog log;
    return log;
}

void MessageLog::add(Kind kind, const std::string& text) {
    std::lock_guard lock(m_mutex);
    std::string located;
    const bool needsOrigin = (kind == Kind::Error || kind == Kind::Warning) && !m_origins.empty() &&
                             text.find(m_origins.back()) == std::string::npos;
    if (needsOrigin)
        located = m_origins.back() + text;
    const std::string& shown = needsOrigin ? located : text;
    if (m_streamOutput)
        write(kind, shown);
    if (kind == Kind::Error)
        ++m_errorCount;
    if (m_messages.size() == kKeptMessages)
        m_messages.erase(m_messages.begin(), m_messages.begin() + kKeptMessages / 2);
    m_messages.push_back({kind, shown});
}

std::vector<MessageLog::Message> MessageLog::messages() const {
    std::lock_guard lock(m_mutex);
    ++m_copies;
    return m_messages;
}

std::vector<std::string> MessageLog::texts(Kind kind) const {
    std::lock_guard lock(m_mutex);
    ++m_copies;
    std::vector<std::string> out;
    for (const Message& message : m_messages)
        if (message.kind == kind)
            out.push_back(message.text);
    return out;
}

std::size_t MessageLog::errorCount() const {
    std::lock_guard lock(m_mutex);
    return m_errorCount;
}

std::optional<std::string> MessageLog::errorSince(std::size_t errorsBefore) const {
    std::lock_guard lock(m_mutex);
    if (m_errorCount == errorsBefore)
        return std::nullopt;
    for (auto message = m_messages.rbegin(); message != m_messages.rend(); ++message)
        if (message->kind == Kind::Error)
            return message->text;
    return std::nullopt;
}

void MessageLog::clear() {
    std::lock_guard lock(m_mutex);
    m_messages.clear();
}

void MessageLog::setStreamOutput(bool enabled) {
    std::lock_guard lock(m_mutex);
    m_streamOutput = enabled;
}

std::size_t MessageLog::copiesMade() const {
    std::lock_guard lock(m_mutex);
    return m_copies;
}

MessageOrigin::MessageOrigin(std::string where) {
    MessageLog& log = MessageLog::instance();
    std::lock_guard lock(log.m_mutex);
    log.m_origins.push_back(std::move(where));
}

MessageOrigin::~MessageOrigin() {
    MessageLog& log = MessageLog::instance();
    std::lock_guard lock(log.m_mutex);
    log.m_origins.pop_back();
}

} // namespace oz::cmd
