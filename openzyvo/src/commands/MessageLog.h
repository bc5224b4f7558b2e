#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace oz::cmd {

// The host's message log, where user messages, echoed commands and their
// results go. Errors and warnings are written to standard error with a
// "// Error: " or "// Warning: " prefix, the rest to standard output; the log
// also keeps the latest messages so that tests and the host can read them.
class MessageLog {
public:
    enum class Kind { Info, Warning, Error, Echo, Result };

    struct Message {
        Kind kind;
        std::string text;
    };

    static MessageLog& instance();

    void add(Kind kind, const std::string& text);

    std::vector<Message> messages() const;
    std::vector<std::string> texts(Kind kind) const;
    // How many errors were ever added; unlike messages() it survives clear(),
    // so callers can tell whether something reported an error meanwhile.
    std::size_t errorCount() const;
    // The newest error, when one was added since errorCount() was
    // errorsBefore; found from the end, so a caller that asks after every
    // failing command does not pay for the whole log.
    std::optional<std::string> errorSince(std::size_t errorsBefore) const;
    void clear();

    // Tests and quiet hosts turn the stream output off; the log still keeps
    // the messages.
    void setStreamOutput(bool enabled);

    // How many times messages() or texts() copied the kept messages out.
    // Those are for showing the log; a path that runs once per statement
    // must not call them, or a file of failing statements reads in
    // quadratic time.
    std::size_t copiesMade() const;

private:
    friend class MessageOrigin;

    MessageLog() = default;

    mutable std::mutex m_mutex;
    std::vector<Message> m_messages;
    std::size_t m_errorCount = 0;
    mutable std::size_t m_copies = 0;
    bool m_streamOutput = true;
    std::vector<std::string> m_origins;
};

// Where the statement running now stands, as "scene.zya: line 3, column 1: ",
// for as long as the origin lives. Errors and warnings added meanwhile start
// with the innermost origin, whoever reports them: a built-in command, a
// plug-in or Python code the statement runs. A message that already names
// the origin is left as it is.
class MessageOrigin {
public:
    explicit MessageOrigin(std::string where);
    ~MessageOrigin();
    MessageOrigin(const MessageOrigin&) = delete;
    MessageOrigin& operator=(const MessageOrigin&) = delete;
};

} // namespace oz::cmd
