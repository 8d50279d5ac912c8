#include "Tessarine/view/accessibility/AccessibleTextView.h"

#include "Tessarine/view/QtTextView.h"
#include "Tessarine/view/accessibility/TextPieces.h"
#include "Tessarine/view/interaction/ViewPlaces.h"

#include <algorithm>

namespace tessarine {

namespace {

constexpr int endOffsetName = -1;
constexpr int caretOffsetName = -2;

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* const widget = qobject_cast<QtTextView*>(object);
    return widget ? new AccessibleTextView(*widget) : nullptr;
}

void tell(const TextRange& range, int* startOffset, int* endOffset) {
    *startOffset = toQt(range.location);
    *endOffset = toQt(range.limit());
}

} // namespace

void AccessibleTextView::install() {
    QAccessible::installFactory(makeInterface);
}

AccessibleTextView::AccessibleTextView(QtTextView& textView)
    : QAccessibleWidget(&textView, QAccessible::EditableText) {}

void* AccessibleTextView::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State AccessibleTextView::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = view().isSelectable();
    state.editable = view().isEditable();
    state.readOnly = !view().isEditable();
    return state;
}

void AccessibleTextView::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    const bool isThere = selectionIndex == 0 && selectionCount() == 1;
    tell(isThere ? rangeInText(*view().selectedRange(), *view().document().stringView) : TextRange(),
         startOffset, endOffset);
}

int AccessibleTextView::selectionCount() const {
    const auto& selection = view().selectedRange();
    return selection && selection->length != 0 ? 1 : 0;
}

// There is one at most.
void AccessibleTextView::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void AccessibleTextView::removeSelection(int selectionIndex) {
    if (selectionIndex == 0 && selectionCount() == 1) setCursorPosition(cursorPosition());
}

void AccessibleTextView::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex == 0) view().movement().select(location(startOffset), location(endOffset));
}

int AccessibleTextView::cursorPosition() const {
    return toQt(view().movement().head());
}

void AccessibleTextView::setCursorPosition(int position) {
    const TextRange caret{.location = location(position)};
    view().setSelectedRange(caret);
    view().scrollRangeToVisible(caret);
}

QString AccessibleTextView::text(int startOffset, int endOffset) const {
    return textOf(range(startOffset, endOffset));
}

QString AccessibleTextView::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary,
                                             int* startOffset, int* endOffset) const {
    return piece(pieceBefore, offset, boundary, startOffset, endOffset);
}

QString AccessibleTextView::textAfterOffset(int offset, QAccessible::TextBoundaryType boundary,
                                            int* startOffset, int* endOffset) const {
    return piece(pieceAfter, offset, boundary, startOffset, endOffset);
}

QString AccessibleTextView::textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* startOffset,
                                         int* endOffset) const {
    return piece(pieceAt, offset, boundary, startOffset, endOffset);
}

int AccessibleTextView::characterCount() const {
    return toQt(view().document().stringView->length());
}

// On the screen, as points are.
QRect AccessibleTextView::characterRect(int offset) const {
    const std::int64_t place = location(offset);
    const bool isAtEnd = place == view().document().stringView->length();
    const Rect rect = isAtEnd ? view().caretRect(place) : view().firstRect({.location = place, .length = 1});
    const QRect shown = (inViewport(view(), rect) & QRectF(-1e6, -1e6, 2e6, 2e6)).toAlignedRect();
    return {widget().viewport()->mapToGlobal(shown.topLeft()), shown.size()};
}

int AccessibleTextView::offsetAtPoint(const QPoint& point) const {
    const QPoint place = widget().viewport()->mapFromGlobal(point);
    return widget().viewport()->rect().contains(place) ? toQt(locationAt(view(), place)) : -1;
}

void AccessibleTextView::scrollToSubstring(int startIndex, int endIndex) {
    view().scrollRangeToVisible(range(startIndex, endIndex));
}

QString AccessibleTextView::attributes(int offset, int* startOffset, int* endOffset) const {
    tell(view().movement().lineRange(location(offset)), startOffset, endOffset);
    return {};
}

void AccessibleTextView::deleteText(int startOffset, int endOffset) {
    view().replace(range(startOffset, endOffset), {});
}

void AccessibleTextView::insertText(int offset, const QString& text) {
    view().replace({.location = location(offset)}, fromQt(text));
}

void AccessibleTextView::replaceText(int startOffset, int endOffset, const QString& text) {
    view().replace(range(startOffset, endOffset), fromQt(text));
}

QtTextView& AccessibleTextView::widget() const {
    return *static_cast<QtTextView*>(object());
}

TextView& AccessibleTextView::view() const {
    return widget().textView();
}

std::int64_t AccessibleTextView::location(int offset) const {
    if (offset == endOffsetName) return view().document().stringView->length();
    if (offset == caretOffsetName) return view().movement().head();
    return std::clamp<std::int64_t>(offset, 0, view().document().stringView->length());
}

TextRange AccessibleTextView::range(int startOffset, int endOffset) const {
    const auto [start, limit] = std::minmax({location(startOffset), location(endOffset)});
    return {.location = start, .length = limit - start};
}

QString AccessibleTextView::textOf(const TextRange& range) const {
    return toQt(view().document().stringView->substring(range.location, range.length));
}

QString AccessibleTextView::piece(PieceFinder find, int offset, QAccessible::TextBoundaryType boundary,
                                  int* startOffset, int* endOffset) const {
    const TextRange found = find(view(), location(offset), boundary);
    tell(found, startOffset, endOffset);
    return textOf(found);
}

} // namespace tessarine
