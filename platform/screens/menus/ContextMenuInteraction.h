#pragma once

#include "platform/foundation/Timer.h"
#include "platform/screens/menus/Menu.h"

#include <QtCore/QObject>
#include <QtCore/QPointF>

#include <optional>

class QContextMenuEvent;
class QKeyEvent;
class QPointerEvent;

namespace platform {

// Gives a widget a context menu: by a right click, by a long press of a finger, and by the menu key or
// Shift+F10 where the widget has the focus. After a long press the finger presses nothing any more. In a
// scroll area it belongs to the viewport. Owned by the widget; main thread.
class ContextMenuInteraction : public QObject {
    Q_OBJECT

public:
    // Gives the menu for a point of the widget, none where there is nothing to do. For the keyboard the point
    // is what `keyboardPoint` says, else the widget's middle.
    using Provider = std::function<std::optional<Menu>(QPoint at)>;

    static ContextMenuInteraction& attach(QWidget& widget, Provider provider);

    std::function<QPoint()> keyboardPoint;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Whether the touch may still become a long press, or has become one.
    enum class Finger { Free, Waiting, Taken };

    ContextMenuInteraction(QWidget& widget, Provider provider);

    // These say whether the event is theirs.
    bool keyPressed(const QKeyEvent& event);
    bool asked(const QContextMenuEvent& event);
    bool fingerMoved(const QPointerEvent& event);
    bool openByKeyboard();
    bool open(QPoint at);

    void fingerStayed();
    void giveUp();
    void cancelPress();

    QWidget& m_widget;
    Provider m_provider;
    Timer m_longPress;
    Finger m_finger = Finger::Free;
    QPointF m_begin;
    bool m_isTouch = false; // it came as a touch event, not as a mouse event
};

} // namespace platform
