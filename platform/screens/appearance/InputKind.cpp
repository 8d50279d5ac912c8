#include "platform/screens/appearance/InputKind.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <algorithm>

namespace platform {

namespace {

bool movesFocus(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

bool movesFocus(const QKeyEvent& event) {
    static const Qt::Key keys[] = {Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Up,   Qt::Key_Down,
                                   Qt::Key_Right, Qt::Key_Left,    Qt::Key_Menu, Qt::Key_F6};
    return std::ranges::find(keys, event.key()) != std::end(keys);
}

bool isTouch(const QPointerEvent& event) {
    return event.device() && event.device()->type() == QInputDevice::DeviceType::TouchScreen;
}

class InputWatch : public QObject {
public:
    explicit InputWatch(QCoreApplication* application)
        : QObject(application) {
        application->installEventFilter(this);
    }

    InputKind kind() const { return m_kind; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
        case QEvent::FocusIn:
            if (movesFocus(*static_cast<QFocusEvent*>(event))) m_kind = InputKind::Keyboard;
            break;
        case QEvent::KeyPress:
            if (movesFocus(*static_cast<QKeyEvent*>(event))) m_kind = InputKind::Keyboard;
            break;
        case QEvent::MouseButtonPress:
            m_kind = isTouch(*static_cast<QMouseEvent*>(event)) ? InputKind::Touch : InputKind::Mouse;
            break;
        case QEvent::TouchBegin:
            m_kind = InputKind::Touch;
            break;
        default:
            break;
        }
        return false;
    }

private:
    InputKind m_kind = InputKind::Mouse;
};

} // namespace

InputKind currentInput() {
    static const InputWatch* const watch = new InputWatch(QCoreApplication::instance());
    return watch->kind();
}

} // namespace platform
