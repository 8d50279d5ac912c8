#pragma once

#include "platform/foundation/Timer.h"
#include "platform/screens/list/RowPainter.h"
#include "platform/screens/list/RowSwipe.h"

#include <QtCore/QPersistentModelIndex>
#include <QtWidgets/QScroller>

class QMouseEvent;
class QTouchEvent;
class QWheelEvent;

namespace platform {

// What the mouse and the finger do in a list.
class ListPointer {
public:
    explicit ListPointer(ListView& list);

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    // Whether the event of the viewport is dealt with here: touches, swipes of a touchpad, tool tips.
    bool handle(QEvent& event);

    // The rows have moved under the pointer.
    void findHover();

    void rowsScrolled();

    void modelWasReset();

    const RowSwipe& swipe() const { return m_swipe; }

    // Whether a finger is there for nothing but to end their scrolling.
    bool stopsScrolling() const { return m_finger == Finger::Stopping; }

    // What the pointer does to the look of a row.
    RowLook lookOf(const QModelIndex& index) const;

private:
    // A row, or the row's button.
    struct Target {
        QPersistentModelIndex index;
        bool isButton = false;

        bool operator==(const Target&) const = default;
    };

    void scrollerBecame(QScroller::State state);
    Target targetAt(const QPoint& at) const;
    void change(Target& target, const Target& to);
    void begin(const QPoint& at);
    void end(const QPoint& at);
    void touch(QTouchEvent& event);
    void fingerMoved(const QPoint& at);
    void cancel();
    bool isOnUncovered(const QPoint& at) const;
    // Whether the row under the point swipes.
    bool beginSwipe(const QPoint& at);
    // From where it began to here, towards the start of the row.
    void swipeBy(int pixelsToTheRight);
    bool wheel(const QWheelEvent& event);
    void endWheel();
    void drag();
    bool showToolTip(const QPoint& at, const QPoint& onScreen) const;

    ListView& m_list;
    Target m_hovered;
    Target m_pressed;
    QPoint m_pressedAt;
    QPoint m_pointer; // while it is over the list
    bool m_isOver = false;

    // What a finger does, from its touch on. Stopping are rows that scroll on by themselves; Other is all
    // else but a press of what it touched.
    enum class Finger { Away, Pressing, Swiping, Stopping, Other };

    Finger m_finger = Finger::Away;
    QScroller::State m_scroller = QScroller::Inactive;
    bool m_isTouchAStop = false; // of the scrolling that ended in this turn of the main loop
    QPoint m_fingerAt;           // where it touched
    RowSwipe m_swipe;
    int m_wheeled = 0; // pixels of a touchpad's swipe so far
    Timer m_stopEnd;
    Timer m_wheelEnd;
};

} // namespace platform
