#pragma once

#include "platform/screens/list/RowPainter.h"

#include <QtCore/QPersistentModelIndex>

class QMouseEvent;
class QTouchEvent;

namespace platform {

// What the mouse and the finger do in a list.
class ListPointer {
public:
    explicit ListPointer(ListView& list);

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    // Whether the event of the viewport is dealt with here: touches, tool tips, and a pointer that leaves.
    bool handle(QEvent& event);

    // The rows have moved under the pointer.
    void findHover();

    // What the pointer does to the look of a row.
    RowLook lookOf(const QModelIndex& index) const;

private:
    // A row, or the row's button.
    struct Target {
        QPersistentModelIndex index;
        bool isButton = false;

        bool operator==(const Target&) const = default;
    };

    Target targetAt(const QPoint& at) const;
    void change(Target& target, const Target& to);
    void begin(const QPoint& at);
    void end(const QPoint& at);
    void touch(QTouchEvent& event);
    void drag();
    bool showToolTip(const QPoint& at, const QPoint& onScreen) const;

    ListView& m_list;
    Target m_hovered;
    Target m_pressed;
    QPoint m_pressedAt;
    QPoint m_pointer; // while it is over the list
    bool m_isOver = false;
};

} // namespace platform
