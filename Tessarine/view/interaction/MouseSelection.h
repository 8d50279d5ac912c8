#pragma once

#include "Tessarine/view/interaction/ClickCounter.h"
#include "Tessarine/view/interaction/EdgeScroll.h"

#include <QtCore/QPointF>

#include <cstdint>
#include <functional>

class QMouseEvent;
class QWidget;

namespace tessarine {

class TextClipboard;
class TextView;
class ViewScrolling;

// Selects with the left button: places, words by double clicks, lines by triple ones or on line numbers, and
// goes on in these pieces while it is dragged. Selected text itself can be dragged away.
//
// Places are those in the viewport, in points.
class MouseSelection {
public:
    // Borrows them. Dragging text away is the owner's to do.
    MouseSelection(TextView& textView, TextClipboard& clipboard, ViewScrolling& scrolling, QWidget& viewport,
                   std::function<void()> dragText);

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release();

    // What is selected anywhere on the desktop goes there.
    void pasteSelection(const QMouseEvent& event);

    bool isSelecting() const { return m_unit != Unit::none; }

private:
    enum class Unit : std::uint8_t {
        none,
        heldText, // not known yet whether it is dragged or only clicked on
        place,
        word,
        line
    };

    void begin(Unit unit, std::int64_t location, Qt::KeyboardModifiers modifiers);
    void extendTo(const QPointF& place);
    void scrollBy(const QPointF& step);
    bool isOnGutter(const QPointF& place) const;
    bool isOnSelection(const QPointF& place) const;
    void showCursorFor(const QPointF& place) const;

    TextView& m_textView;
    TextClipboard& m_clipboard;
    ViewScrolling& m_scrolling;
    QWidget& m_viewport;
    const std::function<void()> m_dragText;

    ClickCounter m_clicks;
    Unit m_unit = Unit::none; // while the button is down
    QPointF m_pressed;
    QPointF m_last;
    EdgeScroll m_edgeScroll;
};

} // namespace tessarine
