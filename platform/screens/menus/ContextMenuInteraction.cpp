#include "platform/screens/menus/ContextMenuInteraction.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QApplication>

namespace platform {

namespace {

constexpr std::chrono::milliseconds longPress(500);
constexpr int allowedMovement = 10; // points
constexpr QPointF nowhere(-10000, -10000);

bool isByFinger(const QPointerEvent& event) {
    return event.device() && event.device()->type() == QInputDevice::DeviceType::TouchScreen;
}

bool opensMenu(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

// The keys go to a scroll area, all else to its viewport.
QWidget& keyReceiverOf(QWidget& widget) {
    auto* area = qobject_cast<QAbstractScrollArea*>(widget.parentWidget());
    return area && area->viewport() == &widget ? *area : widget;
}

} // namespace

ContextMenuInteraction& ContextMenuInteraction::attach(QWidget& widget, Provider provider) {
    return *new ContextMenuInteraction(widget, std::move(provider)); // the widget's child
}

ContextMenuInteraction::ContextMenuInteraction(QWidget& widget, Provider provider)
    : QObject(&widget)
    , m_widget(widget)
    , m_provider(std::move(provider))
    , m_longPress(Timer::Kind::OneShot, longPress, [this] { fingerStayed(); }) {
    widget.installEventFilter(this);
    if (auto& keys = keyReceiverOf(widget); &keys != &widget) keys.installEventFilter(this);
}

bool ContextMenuInteraction::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) return keyPressed(*static_cast<QKeyEvent*>(event));
    if (watched != &m_widget) return false;
    switch (event->type()) {
    case QEvent::ContextMenu:
        return asked(*static_cast<QContextMenuEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return isByFinger(*static_cast<QPointerEvent*>(event)) &&
               fingerMoved(*static_cast<QPointerEvent*>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return fingerMoved(*static_cast<QPointerEvent*>(event));
    default:
        return false;
    }
}

bool ContextMenuInteraction::keyPressed(const QKeyEvent& event) {
    return opensMenu(event) && openByKeyboard();
}

bool ContextMenuInteraction::asked(const QContextMenuEvent& event) {
    if (event.reason() == QContextMenuEvent::Keyboard) return openByKeyboard();
    return open(event.pos());
}

bool ContextMenuInteraction::openByKeyboard() {
    return open(keyboardPoint ? keyboardPoint() : m_widget.rect().center());
}

bool ContextMenuInteraction::open(QPoint at) {
    if (QApplication::activePopupWidget()) return true; // a key may come as an event of its own, too
    const auto menu = m_provider(at);
    if (!menu) return false;
    popUpMenu(*menu, &m_widget, m_widget.mapToGlobal(at));
    return true;
}

// Touches reach a widget as such, or as mouse events where nobody accepts them.
bool ContextMenuInteraction::fingerMoved(const QPointerEvent& event) {
    const bool isOneFinger = event.pointCount() == 1;
    const QPointF at = isOneFinger ? event.points().constFirst().position() : QPointF();
    if (event.isBeginEvent()) {
        m_finger = Finger::Waiting;
        m_begin = at;
        m_isTouch = event.type() == QEvent::TouchBegin;
        m_longPress.start();
    } else if (m_finger == Finger::Waiting) {
        const bool isAtPlace = isOneFinger && (at - m_begin).manhattanLength() <= allowedMovement;
        if (event.isEndEvent() || event.type() == QEvent::TouchCancel || !isAtPlace) giveUp();
    }
    return m_finger == Finger::Taken;
}

void ContextMenuInteraction::giveUp() {
    m_longPress.stop();
    m_finger = Finger::Free;
}

void ContextMenuInteraction::fingerStayed() {
    m_finger = Finger::Free;
    if (!open(m_begin.toPoint())) return;
    cancelPress();
    m_finger = Finger::Taken;
}

// Whatever the widget began to do at the touch ends without effect.
void ContextMenuInteraction::cancelPress() {
    if (m_isTouch) {
        QTouchEvent cancel(QEvent::TouchCancel, QPointingDevice::primaryPointingDevice());
        QCoreApplication::sendEvent(&m_widget, &cancel);
        return;
    }
    QMouseEvent release(QEvent::MouseButtonRelease, nowhere, nowhere, nowhere, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(&m_widget, &release);
}

} // namespace platform
