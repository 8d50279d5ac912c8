#include "Tessarine/view/interaction/ClickCounter.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QStyleHints>
#include <QtWidgets/QApplication>

#include <utility>

namespace tessarine {

int ClickCounter::press(const QMouseEvent& event) {
    const bool isNext =
        follows(event.globalPosition().toPoint(), event.timestamp(), QApplication::startDragDistance());
    if (event.type() == QEvent::MouseButtonDblClick)
        m_count = 2;
    else
        m_count = m_count == 2 && isNext ? 3 : 1;
    return m_count;
}

int ClickCounter::tap(const QPoint& placeOnScreen, quint64 time) {
    const bool isNext = follows(placeOnScreen, time, QGuiApplication::styleHints()->touchDoubleTapDistance());
    m_count = isNext ? m_count % 3 + 1 : 1;
    return m_count;
}

bool ClickCounter::follows(const QPoint& place, quint64 time, int distance) {
    const QPoint way = place - std::exchange(m_place, place);
    const quint64 passed = time - std::exchange(m_time, time);
    return way.manhattanLength() < distance &&
           passed <= static_cast<quint64>(QApplication::doubleClickInterval());
}

} // namespace tessarine
