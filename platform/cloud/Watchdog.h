#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace platform {

// Interrupts what cannot be given a time limit: runs `bite` on a thread of its own when the time has come,
// and every tenth of a second after that, until it is called off.
class Watchdog {
public:
    using Clock = std::chrono::steady_clock;

    explicit Watchdog(std::function<void()> bite);

    // Also in place of an earlier watch.
    void watch(Clock::time_point limit);
    // Once this has returned `bite` does not run any more.
    void callOff();

private:
    void run(const std::stop_token& stop);

    std::function<void()> m_bite;
    std::mutex m_mutex; // held while `bite` runs
    std::condition_variable_any m_changed;
    std::optional<Clock::time_point> m_next; // under m_mutex
    std::jthread m_thread;                   // the last to be made and the first to go
};

} // namespace platform
