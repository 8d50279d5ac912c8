#include "platform/cloud/Watchdog.h"

namespace platform {

Watchdog::Watchdog(std::function<void()> bite)
    : m_bite(std::move(bite))
    , m_thread([this](const std::stop_token& stop) { run(stop); }) {}

void Watchdog::watch(Clock::time_point limit) {
    {
        const std::scoped_lock lock(m_mutex);
        m_next = limit;
    }
    m_changed.notify_one();
}

void Watchdog::callOff() {
    const std::scoped_lock lock(m_mutex);
    m_next.reset();
}

void Watchdog::run(const std::stop_token& stop) {
    using namespace std::chrono_literals;
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        const auto isArmed = [this] { return m_next.has_value(); };
        if (!m_changed.wait(lock, stop, isArmed)) return;
        const auto limit = *m_next;
        const auto isOther = [this, limit] { return m_next != limit; };
        if (m_changed.wait_until(lock, stop, limit, isOther) || stop.stop_requested()) continue;
        m_bite();
        m_next = Clock::now() + 100ms;
    }
}

} // namespace platform
