#include "Tessarine/view/QtTimerScheduler.h"

#include <QtCore/QTimer>

#include <algorithm>
#include <utility>

namespace tessarine {

namespace {

constexpr std::chrono::hours longestDelay{500}; // the toolkit counts milliseconds in an int

class QtScheduledTimer final : public ScheduledTimer {
public:
    QtScheduledTimer(std::chrono::milliseconds delay, TimerScheduler::Action action)
        : m_action(std::move(action)) {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            TimerScheduler::Action running = std::move(m_action); // the timer may end in its action
            running();
        });
        m_timer.start(delay);
    }

private:
    TimerScheduler::Action m_action;
    QTimer m_timer;
};

} // namespace

std::unique_ptr<ScheduledTimer> QtTimerScheduler::schedule(std::chrono::duration<double> delay,
                                                           Action action) {
    const auto bounded =
        std::clamp<std::chrono::duration<double>>(delay, std::chrono::hours(0), longestDelay);
    return std::make_unique<QtScheduledTimer>(std::chrono::ceil<std::chrono::milliseconds>(bounded),
                                              std::move(action));
}

} // namespace tessarine
