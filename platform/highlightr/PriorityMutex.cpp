#include "platform/highlightr/PriorityMutex.h"

namespace platform::highlight {

void PriorityMutex::lock(Priority priority) {
    std::unique_lock lock(m_mutex);
    if (priority == Priority::Urgent) {
        ++m_urgentWaiting;
        m_freed.wait(lock, [this] { return !m_isHeld; });
        --m_urgentWaiting;
    } else {
        m_freed.wait(lock, [this] { return !m_isHeld && m_urgentWaiting == 0; });
    }
    m_isHeld = true;
}

void PriorityMutex::unlock() {
    {
        const std::scoped_lock lock(m_mutex);
        m_isHeld = false;
    }
    m_freed.notify_all();
}

int PriorityMutex::urgentWaiting() const {
    const std::scoped_lock lock(m_mutex);
    return m_urgentWaiting;
}

} // namespace platform::highlight
