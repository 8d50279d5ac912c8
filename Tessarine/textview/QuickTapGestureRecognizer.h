#pragma once

#include "Tessarine/base/TimerScheduler.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace tessarine {

// Takes a touch for a tap if it ends soon enough; a longer one is left to whoever selects text by long
// presses. Main thread.
class QuickTapGestureRecognizer {
public:
    enum class State : std::uint8_t { possible, recognized, failed };

    // Nothing is null.
    QuickTapGestureRecognizer(std::shared_ptr<TimerScheduler> timerScheduler, std::function<void()> action);

    std::chrono::duration<double> maximumPressDuration() const { return m_maximumPressDuration; }

    void setMaximumPressDuration(std::chrono::duration<double> duration) {
        m_maximumPressDuration = duration;
    }

    State state() const { return m_state; }

    void touchesBegan();

    // Does the action if it was a tap.
    void touchesEnded();
    void touchesCancelled();

private:
    void finish(State state);

    const std::shared_ptr<TimerScheduler> m_timerScheduler;
    const std::function<void()> m_action;
    std::chrono::duration<double> m_maximumPressDuration{0.3};
    State m_state = State::failed;                 // of the last touch
    std::unique_ptr<ScheduledTimer> m_cancelTimer; // runs while a touch may be a tap
};

} // namespace tessarine
