#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace oz::cmd {

// Work queued for when the host is idle: it runs after the current top-level
// command has finished, in the order queued. Work queued while the queue
// drains runs in the same drain, after what was already waiting. Queuing is
// safe from any thread; draining happens on the main thread.
class IdleQueue {
public:
    static IdleQueue& instance();

    void push(std::function<void()> task);
    // Runs everything queued, including what the tasks queue in turn; does
    // nothing while a node computes. A queue that keeps refilling itself is
    // cut off with an error rather than running forever.
    void drain();
    std::size_t size() const;
    void clear();

    static constexpr std::size_t kMaxTasksPerDrain = 100000;

private:
    IdleQueue() = default;

    mutable std::mutex m_mutex;
    std::deque<std::function<void()>> m_tasks;
    bool m_draining = false;
};

} // namespace oz::cmd
