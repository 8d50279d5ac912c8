#pragma once

#include "Tessarine/textview/QuickTapGestureRecognizer.h"
#include "Tessarine/view/interaction/EdgeScroll.h"
#include "Tessarine/view/interaction/SelectionHandles.h"

#include <QtCore/QPointF>
#include <QtCore/QTimer>

#include <cstdint>
#include <functional>

class QTouchEvent;
class QWidget;

namespace tessarine {

class TextView;
class ViewScrolling;

// What a finger does: a tap places the caret, a long press selects a word and goes on by words while it is
// dragged, anything else scrolls. Several fingers do nothing.
class TouchSelection {
public:
    struct Actions {
        std::function<void()> beginEditing; // a tap has placed the caret
        std::function<void()> selected;     // something has been selected
    };

    // Borrows all.
    TouchSelection(TextView& textView, ViewScrolling& scrolling, QWidget& viewport, Actions actions);

    // Told of what comes to the viewport.
    void touch(const QTouchEvent& event);

    SelectionHandles& handles() { return m_handles; }

private:
    enum class Finger : std::uint8_t { none, resting, scrolling, selecting };

    void begin(const QPointF& place, quint64 time);
    void move(const QPointF& place, quint64 time);
    void end(const QPointF& place, quint64 time);
    void cancel();
    void tap();
    void pressLong();

    TextView& m_textView;
    ViewScrolling& m_scrolling;
    QWidget& m_viewport;
    const Actions m_actions;

    SelectionHandles m_handles;
    QuickTapGestureRecognizer m_quickTap;
    QTimer m_longPress;
    EdgeScroll m_edgeScroll;
    Finger m_finger = Finger::none;
    QPointF m_pressed;
    QPointF m_last;
};

} // namespace tessarine
