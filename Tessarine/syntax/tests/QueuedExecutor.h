#pragma once

#include "Tessarine/base/MainExecutor.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace tessarine {

// The test's own thread as the main one: what is posted runs when the test says so.
class QueuedExecutor final : public MainExecutor {
public:
    void post(Task task) override {
        const std::scoped_lock lock(m_mutex);
        m_tasks.push_back(std::move(task));
        m_posted.notify_one();
    }

    // Waits until something is posted and runs that.
    void runNext() {
        std::unique_lock lock(m_mutex);
        m_posted.wait(lock, [this] { return !m_tasks.empty(); });
        Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        lock.unlock();
        task();
    }

    // Waits until that many are posted, and runs none.
    void waitFor(std::size_t count) {
        std::unique_lock lock(m_mutex);
        m_posted.wait(lock, [&] { return m_tasks.size() >= count; });
    }

    std::size_t taskCount() {
        const std::scoped_lock lock(m_mutex);
        return m_tasks.size();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<Task> m_tasks;
};

} // namespace tessarine
