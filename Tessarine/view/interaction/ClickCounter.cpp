#include "Tessarine/view/interaction/ClickCounter.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace tessarine {

int ClickCounter::press(const QMouseEvent& event) {
    const QPoint place = event.globalPosition().toPoint();
    const bool isNear = (place - m_place).manhattanLength() < QApplication::startDragDistance();
    const bool isSoon =
        event.timestamp() - m_time <= static_cast<quint64>(QApplication::doubleClickInterval());
    if (event.type() == QEvent::MouseButtonDblClick)
        m_count = 2;
    else
        m_count = m_count == 2 && isNear && isSoon ? 3 : 1;
    m_place = place;
    m_time = event.timestamp();
    return m_count;
}

} // namespace tessarine
