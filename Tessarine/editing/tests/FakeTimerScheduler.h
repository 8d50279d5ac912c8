#pragma once

#include "Tessarine/base/TimerScheduler.h"

#include <list>
#include <utility>

namespace tessarine {

// A clock that stands still until the test moves it on.
class FakeTimerScheduler final : public TimerScheduler {
public:
    std::unique_ptr<ScheduledTimer> schedule(std::chrono::duration<double> delay, Action action) override {
        m_timers.push_front({m_now + delay, std::move(action)});
        return std::make_unique<Timer>(*this, m_timers.begin());
    }

    // No timer of a test starts another one.
    void advance(double seconds) {
        m_now += std::chrono::duration<double>(seconds);
        for (auto timer = m_timers.begin(); timer != m_timers.end();) {
            auto& [due, action] = *timer++;
            if (due > m_now || !action) continue;
            Action running = std::exchange(action, nullptr); // the timer may end in its action
            running();
        }
    }

    std::size_t timerCount() const { return m_timers.size(); }

private:
    struct Entry {
        std::chrono::duration<double> due;
        Action action;
    };

    struct Timer final : ScheduledTimer {
        Timer(FakeTimerScheduler& owner, std::list<Entry>::iterator ownEntry)
            : scheduler(owner)
            , entry(ownEntry) {}

        ~Timer() override { scheduler.m_timers.erase(entry); }

        FakeTimerScheduler& scheduler;
        const std::list<Entry>::iterator entry;
    };

    std::chrono::duration<double> m_now{0};
    std::list<Entry> m_timers;
};

} // namespace tessarine
