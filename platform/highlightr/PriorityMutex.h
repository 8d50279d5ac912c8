#pragma once

#include <condition_variable>
#include <mutex>

namespace platform::highlight {

enum class Priority { Urgent, Patient };

// A mutex that urgent threads get before patient ones, however long these wait.
class PriorityMutex {
public:
    void lock(Priority priority);
    void unlock();

    int urgentWaiting() const;

private:
    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_freed;
    int m_urgentWaiting = 0;
    bool m_isHeld = false;
};

} // namespace platform::highlight
