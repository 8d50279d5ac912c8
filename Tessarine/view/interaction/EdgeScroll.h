#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QTimer>

#include <functional>

namespace tessarine {

// Scrolls on and on while something is dragged beyond an edge, the faster the further.
class EdgeScroll {
public:
    // Called with how far to move, in points.
    explicit EdgeScroll(std::function<void(const QPointF&)> scroll);

    // To be called wherever the drag goes.
    void dragTo(const QPointF& place, const QRectF& area);

    void stop() { m_timer.stop(); }

    bool isRunning() const { return m_timer.isActive(); }

private:
    QTimer m_timer;
    QPointF m_step;
};

} // namespace tessarine
