#include "Tessarine/textview/SelectionLayout.h"

#include <cstddef>

namespace tessarine {

namespace {

void show(View& view, const std::optional<Rect>& rect) {
    if (rect) view.setFrame(*rect);
    view.setHidden(!rect);
}

} // namespace

SelectionLayout::SelectionLayout() {
    m_caretContainerView->addSubview(m_caretView);
    m_caretContainerView->addSubview(m_floatingCaretView);
    for (const auto& view : {m_selectionContainerView, m_caretContainerView})
        view->setUserInteractionEnabled(false);
    m_caretView->setHidden(true);
    m_floatingCaretView->setHidden(true);
    setInsertionPointColor(m_insertionPointColor);
}

void SelectionLayout::setInsertionPointColor(const Color& color) {
    m_insertionPointColor = color;
    m_caretView->setBackgroundColor(color);
    m_floatingCaretView->setBackgroundColor(color);
}

void SelectionLayout::setSelectionHighlightColor(const Color& color) {
    m_selectionHighlightColor = color;
    for (const auto& view : m_selectionContainerView->subviews())
        view->setBackgroundColor(color);
}

void SelectionLayout::setContentSize(const Size& size) {
    for (const auto& view : {m_selectionContainerView, m_caretContainerView})
        view->setFrame({.width = size.width, .height = size.height});
}

// Views that have been made stay, at most three of them.
void SelectionLayout::showSelection(const std::vector<TextSelectionRect>& rects) {
    const auto& views = m_selectionContainerView->subviews();
    while (views.size() < rects.size()) {
        m_selectionContainerView->addSubview(std::make_shared<View>());
        views.back()->setBackgroundColor(m_selectionHighlightColor);
    }
    for (std::size_t i = 0; i < views.size(); ++i)
        show(*views[i], i < rects.size() ? std::optional(rects[i].rect) : std::nullopt);
}

void SelectionLayout::showCaret(const std::optional<Rect>& rect) {
    show(*m_caretView, rect);
}

void SelectionLayout::showFloatingCaret(const std::optional<Rect>& rect) {
    show(*m_floatingCaretView, rect);
}

} // namespace tessarine
