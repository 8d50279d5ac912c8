#include "Tessarine/view/interaction/MouseSelection.h"

#include "Tessarine/view/interaction/TextClipboard.h"
#include "Tessarine/view/interaction/ViewPlaces.h"
#include "Tessarine/view/interaction/ViewScrolling.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <utility>

namespace tessarine {

MouseSelection::MouseSelection(TextView& textView, TextClipboard& clipboard, ViewScrolling& scrolling,
                               QWidget& viewport, std::function<void()> dragText)
    : m_textView(textView)
    , m_clipboard(clipboard)
    , m_scrolling(scrolling)
    , m_viewport(viewport)
    , m_dragText(std::move(dragText))
    , m_edgeScroll([this](const QPointF& step) { scrollBy(step); }) {}

void MouseSelection::press(const QMouseEvent& event) {
    const int clicks = m_clicks.press(event);
    m_pressed = event.position();
    if (!m_textView.isSelectable()) return;
    const bool isExtending = event.modifiers().testFlag(Qt::ShiftModifier);
    const std::int64_t location = locationAt(m_textView, m_pressed);
    if (isOnGutter(m_pressed) || clicks == 3)
        begin(Unit::line, location, event.modifiers());
    else if (clicks == 2)
        begin(Unit::word, location, event.modifiers());
    else if (!isExtending && isOnSelection(m_pressed))
        m_unit = Unit::heldText;
    else
        begin(Unit::place, location, event.modifiers());
}

void MouseSelection::begin(Unit unit, std::int64_t location, Qt::KeyboardModifiers modifiers) {
    m_unit = unit;
    SelectionMovement& movement = m_textView.movement();
    const bool isExtending = modifiers.testFlag(Qt::ShiftModifier) && m_textView.selectedRange();
    if (isExtending)
        movement.moveTo(location, SelectionMode::extend);
    else if (unit == Unit::word)
        movement.selectWordAt(location);
    else if (unit == Unit::line)
        movement.selectLineAt(location);
    else
        movement.moveTo(location, SelectionMode::move);
}

// Something else on the screen may have taken the release.
void MouseSelection::move(const QMouseEvent& event) {
    m_last = event.position();
    if (m_unit != Unit::none && !event.buttons().testFlag(Qt::LeftButton)) release();
    if (m_unit == Unit::none) {
        showCursorFor(m_last);
    } else if (m_unit == Unit::heldText) {
        if ((m_last - m_pressed).manhattanLength() < QApplication::startDragDistance()) return;
        m_unit = Unit::none;
        m_dragText();
    } else {
        m_edgeScroll.dragTo(m_last, m_viewport.rect());
        extendTo(m_last);
    }
}

void MouseSelection::release() {
    m_edgeScroll.stop();
    const Unit unit = std::exchange(m_unit, Unit::none);
    if (unit == Unit::heldText)
        m_textView.movement().moveTo(locationAt(m_textView, m_pressed), SelectionMode::move);
    else if (unit != Unit::none)
        m_clipboard.offerSelection();
}

void MouseSelection::pasteSelection(const QMouseEvent& event) {
    if (!m_clipboard.canPasteSelection()) return;
    m_textView.movement().moveTo(locationAt(m_textView, event.position()), SelectionMode::move);
    m_clipboard.paste(QClipboard::Selection);
}

void MouseSelection::extendTo(const QPointF& place) {
    SelectionMovement& movement = m_textView.movement();
    const std::int64_t location = locationAt(m_textView, place);
    if (m_unit == Unit::word)
        movement.extendByWordsTo(location);
    else if (m_unit == Unit::line)
        movement.extendByLinesTo(location);
    else
        movement.moveTo(location, SelectionMode::extend);
}

void MouseSelection::scrollBy(const QPointF& step) {
    if (m_scrolling.moveBy(step)) extendTo(m_last);
}

bool MouseSelection::isOnGutter(const QPointF& place) const {
    return place.x() < m_textView.gutterWidth();
}

bool MouseSelection::isOnSelection(const QPointF& place) const {
    return m_clipboard.canCopy() &&
           std::ranges::any_of(m_textView.selectionRects(*m_textView.selectedRange()),
                               [&](const TextSelectionRect& part) {
                                   return inViewport(m_textView, part.rect).contains(place);
                               });
}

void MouseSelection::showCursorFor(const QPointF& place) const {
    const bool isOnText = m_textView.isSelectable() && !isOnGutter(place);
    m_viewport.setCursor(isOnText ? Qt::IBeamCursor : Qt::ArrowCursor);
}

} // namespace tessarine
