#include "platform/screens/appearance/InputKind.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <algorithm>
#include <optional>

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

// What an event says of how the user works; most say nothing.
std::optional<InputKind> kindOf(const QEvent& event) {
    switch (event.type()) {
    case QEvent::FocusIn:
        if (movesFocus(static_cast<const QFocusEvent&>(event))) return InputKind::Keyboard;
        return std::nullopt;
    case QEvent::KeyPress:
        if (movesFocus(static_cast<const QKeyEvent&>(event))) return InputKind::Keyboard;
        return std::nullopt;
    case QEvent::MouseButtonPress:
        return isTouch(static_cast<const QMouseEvent&>(event)) ? InputKind::Touch : InputKind::Mouse;
    case QEvent::TouchBegin:
        return InputKind::Touch;
    default:
        return std::nullopt;
    }
}

class InputWatch : public QObject {
public:
    explicit InputWatch(QCoreApplication* application)
        : QObject(application) {
        application->installEventFilter(this);
    }

    Observable<InputKind>& kind() { return m_kind; }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (const auto kind = kindOf(*event); kind && *kind != m_kind.value()) m_kind.set(*kind);
        return false;
    }

private:
    Observable<InputKind> m_kind{InputKind::Mouse};
};

} // namespace

Observable<InputKind>& input() {
    static auto* const watch = new InputWatch(QCoreApplication::instance()); // the application's child
    return watch->kind();
}

} // namespace platform
