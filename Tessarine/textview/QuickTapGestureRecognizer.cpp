#include "Tessarine/textview/QuickTapGestureRecognizer.h"

#include <utility>

namespace tessarine {

QuickTapGestureRecognizer::QuickTapGestureRecognizer(std::shared_ptr<TimerScheduler> timerScheduler,
                                                     std::function<void()> action)
    : m_timerScheduler(std::move(timerScheduler))
    , m_action(std::move(action)) {}

void QuickTapGestureRecognizer::touchesBegan() {
    m_state = State::possible;
    m_cancelTimer = m_timerScheduler->schedule(m_maximumPressDuration, [this] { finish(State::failed); });
}

void QuickTapGestureRecognizer::touchesEnded() {
    if (m_state != State::possible) return;
    finish(State::recognized);
    m_action();
}

void QuickTapGestureRecognizer::touchesCancelled() {
    if (m_state == State::possible) finish(State::failed);
}

void QuickTapGestureRecognizer::finish(State state) {
    m_cancelTimer.reset();
    m_state = state;
}

} // namespace tessarine
