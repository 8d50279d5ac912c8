// How a text view lays out what shows, and scrolls.

#include "Tessarine/textview/ScrollArea.h"
#include "Tessarine/textview/TextView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessarine {

namespace {

// A pass may find another size of the content, which may move what shows; each of them knows more than the
// one before.
constexpr int mostPasses = 4;

constexpr double rounding = 1e-6;

} // namespace

void TextView::setSize(const Size& size) {
    m_scrollView->setFrame({.width = size.width, .height = size.height});
    m_layoutManager->setScrollViewWidth(size.width);
    updateContentSize(m_layoutContentSize);
    viewportDidChange();
}

void TextView::setSafeAreaInsets(const EdgeInsets& insets) {
    if (insets == m_scrollView->safeAreaInsets()) return;
    const bool isAtStart = m_scrollView->contentOffset() == minimumContentOffset();
    m_scrollView->setSafeAreaInsets(insets);
    m_layoutManager->safeAreaInsetsDidChange();
    if (isAtStart) m_scrollView->setContentOffset(minimumContentOffset());
    viewportDidChange();
}

void TextView::setScreenScale(double scale) {
    m_screenScale = scale;
    showHairlines();
}

void TextView::keyboardWillShow(double height) {
    setCoveredHeight(height);
}

void TextView::keyboardWillHide() {
    setCoveredHeight(0);
}

void TextView::keyboardDidChangeHeight(double height) {
    setCoveredHeight(height);
}

void TextView::setCoveredHeight(double height) {
    m_scrollView->setContentInset({.bottom = height});
    viewportDidChange();
    if (m_isEditing && m_isAutomaticScrollEnabled && selectedRange()) scrollToVisible(m_movement.head());
}

Point TextView::minimumContentOffset() const {
    return tessarine::minimumContentOffset(*m_scrollView);
}

Point TextView::maximumContentOffset() const {
    return tessarine::maximumContentOffset(*m_scrollView);
}

Point TextView::contentPoint(const Point& pointInView) const {
    const Rect bounds = m_scrollView->bounds();
    return {.x = pointInView.x + bounds.x, .y = pointInView.y + bounds.y};
}

bool TextView::hasViewport() const {
    const Rect& frame = m_scrollView->frame();
    return frame.width > 0 && frame.height > 0;
}

void TextView::setContentOffset(const Point& offset) {
    const Point inRange = contentOffsetInRange(*m_scrollView, offset);
    if (inRange == m_scrollView->contentOffset()) return;
    m_scrollView->setContentOffset(inRange);
    viewportDidChange();
}

// The layout manager may still have to lay out what it was told of before.
void TextView::viewportDidChange() {
    m_layoutManager->setViewport(m_scrollView->bounds());
    setNeedsSelectionLayout();
    tellHost([](TextViewHost& host) { host.textViewDidScroll(); });
}

double TextView::lineHeight() const {
    return document().lineManager->estimatedLineHeight() * lineHeightMultiplier();
}

void TextView::layoutIfNeeded() {
    if (std::exchange(m_isLayingOut, true)) return;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const Point offset = m_scrollView->contentOffset();
        m_layoutManager->layoutIfNeeded();
        if (std::exchange(m_hasPendingContentSizeUpdate, false))
            updateContentSize(m_layoutManager->contentSize());
        if (m_scrollView->contentOffset() != offset) viewportDidChange();
        setContentOffset(m_scrollView->contentOffset());
        if (!m_layoutManager->needsLayout()) break;
    }
    m_isLayingOut = false;
    if (m_layoutManager->needsLayout() && hasViewport()) setNeedsSelectionLayout();
    layoutPageGuide();
    if (std::exchange(m_needsSelectionLayout, false)) layoutSelection();
}

void TextView::updateContentSize(const Size& size) {
    m_layoutContentSize = size;
    const Size viewport = m_scrollView->frame().size();
    const Size content{.width = size.width + viewport.width * m_horizontalOverscrollFactor,
                       .height = size.height + viewport.height * m_verticalOverscrollFactor};
    const Size shown{.width = std::max(content.width, viewport.width),
                     .height = std::max(content.height, viewport.height)};
    m_contentView->setFrame({.width = shown.width, .height = shown.height});
    m_selectionLayout.setContentSize(shown);
    if (content == m_scrollView->contentSize()) return;
    m_scrollView->setContentSize(content);
    tellHost([](TextViewHost& host) { host.textViewDidScroll(); });
}

void TextView::setVerticalOverscrollFactor(double factor) {
    m_verticalOverscrollFactor = std::max(0.0, factor);
    updateContentSize(m_layoutContentSize);
    viewportDidChange();
}

void TextView::setHorizontalOverscrollFactor(double factor) {
    m_horizontalOverscrollFactor = std::max(0.0, factor);
    updateContentSize(m_layoutContentSize);
    viewportDidChange();
}

void TextView::textInputViewNeedsContentSizeUpdate() {
    m_hasPendingContentSizeUpdate = true;
    layoutManagerNeedsLayout();
}

void TextView::layoutManagerDidChangeContentSize(const Size& size) {
    updateContentSize(size);
    m_hasPendingContentSizeUpdate = false;
}

void TextView::layoutManagerDidChangeGutterWidth() {
    setNeedsSelectionLayout();
    if (const auto delegate = editorDelegate()) delegate->textViewDidChangeGutterWidth(*this);
}

void TextView::layoutManagerNeedsLayout() {
    setNeedsSelectionLayout();
}

void TextView::setNeedsSelectionLayout() {
    m_needsSelectionLayout = true;
    if (!m_isLayingOut) tellHost([](TextViewHost& host) { host.textViewNeedsLayout(); });
}

void TextView::setCaretShown(bool isShown) {
    if (std::exchange(m_isCaretShown, isShown) != isShown) setNeedsSelectionLayout();
}

void TextView::layoutSelection() {
    const auto& selection = selectedRange();
    const bool isCaret = selection && selection->length == 0;
    m_selectionLayout.showSelection(selection && !isCaret ? shownSelectionRects(*selection)
                                                          : std::vector<TextSelectionRect>());
    std::optional<Rect> caret;
    if (isCaret && m_isEditing && m_isCaretShown) caret = m_movement.headRect();
    if (caret) caret->width = SelectionLayout::caretWidth;
    m_selectionLayout.showCaret(caret);
}

// A selection within one row takes in the caret at its end, which does not show: it would look wider than its
// text.
std::vector<TextSelectionRect> TextView::shownSelectionRects(const TextRange& range) const {
    std::vector<TextSelectionRect> rects = m_layoutManager->selectionRects(range);
    if (rects.size() != 1) return rects;
    const Rect caret = m_layoutManager->caretRect(m_textInputView->inText(range).limit());
    if (std::abs(rects.front().rect.maxX() - caret.maxX()) < rounding)
        rects.front().rect.width -= caret.width;
    return rects;
}

// It goes along with what shows.
void TextView::layoutPageGuide() {
    const Rect bounds = m_scrollView->bounds();
    const double x = m_layoutManager->geometry().leadingLineSpacing() + m_pageGuideController.columnOffset();
    PageGuideView& guide = *m_pageGuideController.guideView();
    guide.setHidden(!m_showPageGuide || x >= bounds.maxX());
    guide.setFrame(
        {.x = x, .y = bounds.y, .width = std::max(0.0, bounds.maxX() - x), .height = bounds.height});
}

void TextView::textInputViewScrollToVisible(std::int64_t location) {
    if (m_isAutomaticScrollEnabled) scrollToVisible(location);
}

// Where it lies is known only once what lies around it has been laid out.
void TextView::scrollToVisible(std::int64_t location) {
    if (!hasViewport()) return;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const Point before = m_scrollView->contentOffset();
        const auto head =
            selectedRange() && location == m_movement.head() ? m_movement.headRect() : std::optional<Rect>();
        setContentOffset(offsetShowing(head ? *head : caretRect(location)));
        if (m_scrollView->contentOffset() == before) return;
        m_layoutManager->typesetLines(location);
        layoutIfNeeded();
    }
}

// Rows that lie under the gutter do not show.
Point TextView::offsetShowing(const Rect& rect) const {
    EdgeInsets margin = m_automaticScrollInset;
    margin.left += gutterWidth();
    return contentOffsetShowing(*m_scrollView, rect, margin);
}

void TextView::scrollRangeToVisible(const TextRange& range) {
    const TextRange shown = m_textInputView->inText(range);
    scrollToVisible(shown.limit());
    scrollToVisible(shown.location);
}

void TextView::beginFloatingCursor(const Point& point) {
    if (hasFloatingCursor() || !m_isEditing) return;
    showFloatingCaret(point);
    if (const auto delegate = editorDelegate()) delegate->textViewDidBeginFloatingCursor(*this);
}

void TextView::updateFloatingCursor(const Point& point) {
    if (!hasFloatingCursor()) return;
    const std::int64_t location = closestIndex(point);
    m_movement.moveTo(location, SelectionMode::move);
    showFloatingCaret(point);
}

void TextView::showFloatingCaret(const Point& point) {
    m_hasFloatingCursor = true;
    const double height = caretRect().value_or(Rect{.height = lineHeight()}).height;
    m_selectionLayout.showFloatingCaret(Rect{.x = point.x - SelectionLayout::caretWidth / 2,
                                             .y = point.y - height / 2,
                                             .width = SelectionLayout::caretWidth,
                                             .height = height});
}

void TextView::endFloatingCursor() {
    if (!std::exchange(m_hasFloatingCursor, false)) return;
    m_selectionLayout.showFloatingCaret(std::nullopt);
    if (const auto delegate = editorDelegate()) delegate->textViewDidEndFloatingCursor(*this);
}

} // namespace tessarine
