#include "commands/IdleQueue.h"

#include "commands/MessageLog.h"
#include "core/EvaluationScope.h"

#include <exception>
#include <string>

namespace oz::cmd {

IdleQueue& IdleQueue::instance() {
    static IdleQueue queue;
    return queue;
}

void IdleQueue::push(std::function<void()> task) {
    std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
}

void IdleQueue::drain() {
    // A command that a node's compute runs may end at the top level; the
    // host is idle only once the evaluation is over.
    if (EvaluationScope::active())
        return;
    {
        std::lock_guard lock(m_mutex);
        // A task that runs a top-level command ends up here again; the drain
        // already under way picks up whatever that command queues.
        if (m_draining)
            return;
        m_draining = true;
    }
    std::size_t ran = 0;
    while (true) {
        std::function<void()> task;
        {
            std::lock_guard lock(m_mutex);
            if (m_tasks.empty())
                break;
            if (ran == kMaxTasksPerDrain) {
                m_tasks.clear();
                MessageLog::instance().add(MessageLog::Kind::Error,
                                           "Idle queue keeps refilling itself; the remaining idle commands "
                                           "were dropped.");
                break;
            }
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        ++ran;
        try {
            task();
        } catch (const std::exception& error) {
            MessageLog::instance().add(MessageLog::Kind::Error,
                                       std::string("Idle command failed: ") + error.what());
        }
    }
    std::lock_guard lock(m_mutex);
    m_draining = false;
}

std::size_t IdleQueue::size() const {
    std::lock_guard lock(m_mutex);
    return m_tasks.size();
}

void IdleQueue::clear() {
    std::deque<std::function<void()>> dropped;
    std::lock_guard lock(m_mutex);
    dropped.swap(m_tasks);
}

} // namespace oz::cmd
