#include "platform/foundation/Timer.h"

#include <QtCore/QTimer>

#include <utility>

namespace platform {

Timer::Timer(Kind kind, std::chrono::milliseconds interval, std::function<void()> work)
    : m_timer(std::make_unique<QTimer>()) {
    m_timer->setSingleShot(kind == Kind::OneShot);
    m_timer->setInterval(interval);
    QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), std::move(work));
}

Timer::~Timer() = default;

void Timer::start() {
    m_timer->start();
}

void Timer::stop() {
    m_timer->stop();
}

bool Timer::isActive() const {
    return m_timer->isActive();
}

} // namespace platform
