#include "platform/screens/controls/TouchPress.h"

#include <QtGui/QTouchEvent>
#include <QtWidgets/QAbstractButton>

namespace platform {

namespace {

constexpr int allowedMovement = 10; // points

} // namespace

void TouchPress::attach(QAbstractButton& button) {
    new TouchPress(button); // the button's child
}

TouchPress::TouchPress(QAbstractButton& button)
    : QObject(&button)
    , m_button(button) {
    button.setAttribute(Qt::WA_AcceptTouchEvents);
    button.installEventFilter(this);
}

bool TouchPress::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        touched(static_cast<QTouchEvent&>(*event));
        event->accept();
        return true;
    case QEvent::TouchCancel:
        m_button.setDown(false);
        return true;
    default:
        return false;
    }
}

void TouchPress::touched(const QTouchEvent& event) {
    const bool isOneFinger = event.pointCount() == 1;
    const QPointF at = isOneFinger ? event.points().constFirst().position() : QPointF();
    if (event.isBeginEvent()) {
        m_begin = at;
        m_button.setDown(isOneFinger && m_button.isEnabled());
    }
    if (!isOneFinger || (at - m_begin).manhattanLength() > allowedMovement) m_button.setDown(false);
    if (event.isEndEvent() && m_button.isDown()) m_button.click();
}

} // namespace platform
