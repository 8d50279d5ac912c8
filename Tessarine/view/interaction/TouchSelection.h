#pragma once

#include "Tessarine/textview/QuickTapGestureRecognizer.h"
#include "Tessarine/view/interaction/ClickCounter.h"
#include "Tessarine/view/interaction/EdgeScroll.h"
#include "Tessarine/view/interaction/SelectionHandles.h"

#include <QtCore/QPointF>
#include <QtCore/QTimer>

#include <cstdint>
#include <functional>

class QTouchEvent;
class QWidget;

namespace tessarine {

class SelectionMovement;
class TextView;
class ViewScrolling;

// What a finger does: a tap places the caret, two select a word and three a line. A long press selects a
// word, goes on by words while it is dragged, and ends in the menu. Anything else scrolls, and goes on for a
// while after a flick. Several fingers do nothing.
class TouchSelection {
public:
    struct Actions {
        std::function<void()> beginEditing;           // a tap has placed the caret
        std::function<void()> selected;               // something has been selected
        std::function<void(const QPointF&)> showMenu; // at that place in the viewport
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
    void finishSelecting(const QPointF& place);
    void tap();
    void pressLong();
    void select(void (SelectionMovement::*selectUnitAt)(std::int64_t), std::int64_t location);

    TextView& m_textView;
    ViewScrolling& m_scrolling;
    QWidget& m_viewport;
    const Actions m_actions;

    SelectionHandles m_handles;
    QuickTapGestureRecognizer m_quickTap;
    ClickCounter m_taps;
    int m_tapCount = 0; // with the one that may come now
    QTimer m_longPress;
    EdgeScroll m_edgeScroll;
    Finger m_finger = Finger::none;
    QPointF m_pressed;
    QPointF m_last;
};

} // namespace tessarine
