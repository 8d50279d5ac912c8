#include "Tessarine/view/interaction/SelectionHandles.h"

#include "Tessarine/view/interaction/SelectionHandle.h"
#include "Tessarine/view/interaction/ViewPlaces.h"
#include "Tessarine/view/interaction/ViewScrolling.h"

#include <algorithm>
#include <utility>

namespace tessarine {

SelectionHandles::SelectionHandles(TextView& textView, ViewScrolling& scrolling, QWidget& viewport,
                                   std::function<void()> selected)
    : m_textView(textView)
    , m_scrolling(scrolling)
    , m_viewport(viewport)
    , m_start(makeHandle(End::start))
    , m_limit(makeHandle(End::limit))
    , m_selected(std::move(selected))
    , m_edgeScroll([this](const QPointF& step) {
        if (m_scrolling.moveBy(step)) select(m_tip);
    }) {}

SelectionHandle& SelectionHandles::makeHandle(End end) {
    return *new SelectionHandle(&m_viewport, {.begin = [this, end] { begin(end); },
                                              .drag = [this](const QPointF& tip) { drag(tip); },
                                              .end = [this] { this->end(); }});
}

void SelectionHandles::show() {
    m_isShown = true;
    update();
}

void SelectionHandles::hide() {
    m_isShown = false;
    update();
}

void SelectionHandles::setUserInterfaceStyle(UserInterfaceStyle style) {
    m_style = style;
    update();
}

// A grip that is dragged stays with the selection's head, also where that passes the other end.
void SelectionHandles::update() {
    const auto& selection = m_textView.selectedRange();
    const bool isShown = m_isShown && selection && selection->length != 0;
    if (isShown) {
        const std::int64_t anchor = m_textView.movement().anchor();
        const std::int64_t head = m_textView.movement().head();
        const bool isHeadAtStart = m_dragged ? *m_dragged == End::start : head < anchor;
        place(m_start, isHeadAtStart ? head : anchor);
        place(m_limit, isHeadAtStart ? anchor : head);
    }
    m_start.setVisible(isShown);
    m_limit.setVisible(isShown);
}

void SelectionHandles::begin(End end) {
    SelectionMovement& movement = m_textView.movement();
    const auto [first, last] = std::minmax({movement.anchor(), movement.head()});
    if (end == End::start)
        movement.select(last, first);
    else
        movement.select(first, last);
    m_dragged = end;
}

void SelectionHandles::drag(const QPointF& tip) {
    m_tip = tip;
    m_edgeScroll.dragTo(tip, m_viewport.rect());
    select(tip);
}

void SelectionHandles::end() {
    m_edgeScroll.stop();
    m_dragged.reset();
    update();
    m_selected();
}

// Something stays selected, as there would be no grips without.
void SelectionHandles::select(const QPointF& place) {
    SelectionMovement& movement = m_textView.movement();
    const std::int64_t location = locationAt(m_textView, place);
    if (location != movement.anchor()) movement.moveTo(location, SelectionMode::extend);
}

void SelectionHandles::place(SelectionHandle& handle, std::int64_t location) const {
    handle.setColor(toQt(m_textView.selectionBarColor().resolved(m_style)));
    handle.pointAt(inViewport(m_textView, m_textView.caretRect(location)).bottomLeft());
}

} // namespace tessarine
