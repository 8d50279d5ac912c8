#include "Tessarine/view/interaction/EdgeScroll.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tessarine {

namespace {

constexpr std::chrono::milliseconds interval{20};
constexpr double share = 0.25;      // of the distance to the edge that one step goes
constexpr double longestStep = 120; // points

double beyond(double place, double minimum, double maximum) {
    const double distance = place - std::clamp(place, minimum, maximum);
    return std::clamp(distance * share, -longestStep, longestStep);
}

} // namespace

EdgeScroll::EdgeScroll(std::function<void(const QPointF&)> scroll) {
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer,
                     [this, action = std::move(scroll)] { action(m_step); });
}

void EdgeScroll::dragTo(const QPointF& place, const QRectF& area) {
    m_step = {beyond(place.x(), area.left(), area.right()), beyond(place.y(), area.top(), area.bottom())};
    if (m_step.isNull())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start();
}

} // namespace tessarine
