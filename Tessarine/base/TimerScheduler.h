#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tessarine {

// A call that is still to come. Its end calls it off.
class ScheduledTimer {
public:
    ScheduledTimer() = default;
    ScheduledTimer(const ScheduledTimer&) = delete;
    ScheduledTimer& operator=(const ScheduledTimer&) = delete;
    virtual ~ScheduledTimer() = default;
};

// The host's clock, as far as the engine wants to be called later. Main thread.
class TimerScheduler {
public:
    using Action = std::move_only_function<void()>;

    TimerScheduler() = default;
    TimerScheduler(const TimerScheduler&) = delete;
    TimerScheduler& operator=(const TimerScheduler&) = delete;
    virtual ~TimerScheduler() = default;

    // Calls the action once, from the main thread's loop, whatever that is busy with. The timer may end
    // within its own action.
    virtual std::unique_ptr<ScheduledTimer> schedule(std::chrono::duration<double> delay, Action action) = 0;
};

} // namespace tessarine
