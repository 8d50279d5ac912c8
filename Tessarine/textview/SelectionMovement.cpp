#include "Tessarine/textview/SelectionMovement.h"

#include "Tessarine/textview/WordMovement.h"

#include <algorithm>

namespace tessarine {

namespace {

bool isByRows(CaretMovement movement) {
    return movement == CaretMovement::up || movement == CaretMovement::down ||
           movement == CaretMovement::pageUp || movement == CaretMovement::pageDown;
}

} // namespace

SelectionMovement::SelectionMovement(TextInputView& textInputView, LayoutManager& layoutManager)
    : m_textInputView(textInputView)
    , m_rowMovement(layoutManager) {}

TextRange SelectionMovement::Selection::range() const {
    return {std::min(anchor, head), std::max(anchor, head) - std::min(anchor, head)};
}

SelectionMovement::Selection SelectionMovement::selection() const {
    const auto& range = m_textInputView.selectedRange();
    if (!range) return {};
    return *range == m_selection.range() ? m_selection : Selection{range->location, range->limit()};
}

std::int64_t SelectionMovement::inText(std::int64_t location) const {
    return std::clamp<std::int64_t>(location, 0, text().length());
}

const DocumentLineNode& SelectionMovement::lineContaining(std::int64_t location) const {
    return m_textInputView.document().lineManager->lineContaining(inText(location));
}

// Whoever is told of the selection finds its ends as they are now.
void SelectionMovement::apply(std::int64_t anchor, std::int64_t head) {
    m_selection = {inText(anchor), inText(head)};
    m_textInputView.setSelectedRange(m_selection.range());
}

void SelectionMovement::select(std::int64_t anchor, std::int64_t head) {
    m_rowMovement.forgetSteps();
    m_piece = {inText(anchor), 0};
    apply(anchor, head);
}

void SelectionMovement::move(CaretMovement movement, SelectionMode mode) {
    if (!m_textInputView.selectedRange()) return;
    const Selection old = selection();
    const bool collapses = mode == SelectionMode::move && old.anchor != old.head;
    std::int64_t head = 0;
    if (collapses && movement == CaretMovement::left)
        head = old.range().location;
    else if (collapses && movement == CaretMovement::right)
        head = old.range().limit();
    else
        head = destination(movement, old.head);
    if (!isByRows(movement)) m_rowMovement.forgetSteps();
    apply(mode == SelectionMode::extend ? old.anchor : head, head);
}

std::int64_t SelectionMovement::destination(CaretMovement movement, std::int64_t location) {
    switch (movement) {
    case CaretMovement::left:
        return location == 0 ? 0 : text().composedRange(location - 1).location;
    case CaretMovement::right:
        return text().composedRange(location).limit();
    case CaretMovement::wordLeft:
        return wordStartBefore(text(), location);
    case CaretMovement::wordRight:
        return wordLimitAfter(text(), location);
    case CaretMovement::up:
        return m_rowMovement.above(location);
    case CaretMovement::down:
        return m_rowMovement.below(location);
    case CaretMovement::pageUp:
        return m_rowMovement.pageAbove(location);
    case CaretMovement::pageDown:
        return m_rowMovement.pageBelow(location);
    case CaretMovement::lineStart:
        return lineStart(location);
    case CaretMovement::lineEnd:
        return lineEnd(location);
    case CaretMovement::documentStart:
        return 0;
    case CaretMovement::documentEnd:
        break;
    }
    return text().length();
}

std::int64_t SelectionMovement::lineStart(std::int64_t location) const {
    const DocumentLineNode& line = lineContaining(location);
    const std::int64_t content = m_textInputView.indentController().startOfLineContent(line);
    return location > line.location() && location <= content ? line.location() : content;
}

std::int64_t SelectionMovement::lineEnd(std::int64_t location) {
    const std::int64_t rowLimit = m_rowMovement.rowLimit(location);
    return location == rowLimit
               ? lineContaining(location).location() + lineContaining(location).data().length()
               : rowLimit;
}

void SelectionMovement::moveTo(std::int64_t location, SelectionMode mode) {
    if (!m_textInputView.selectedRange()) return select(location, location);
    select(mode == SelectionMode::extend ? anchor() : location, location);
}

TextRange SelectionMovement::wordRange(std::int64_t location) const {
    return wordAt(text(), inText(location));
}

TextRange SelectionMovement::lineRange(std::int64_t location) const {
    const DocumentLineNode& line = lineContaining(location);
    return {line.location(), line.value()};
}

void SelectionMovement::selectWordAt(std::int64_t location) {
    selectPiece(wordRange(location));
}

void SelectionMovement::selectLineAt(std::int64_t location) {
    selectPiece(lineRange(location));
}

void SelectionMovement::selectAll() {
    selectPiece({0, text().length()});
}

void SelectionMovement::selectPiece(const TextRange& piece) {
    select(piece.location, piece.limit());
    m_piece = piece;
}

void SelectionMovement::extendByWordsTo(std::int64_t location) {
    extendTo(wordRange(location));
}

void SelectionMovement::extendByLinesTo(std::int64_t location) {
    extendTo(lineRange(location));
}

void SelectionMovement::extendTo(const TextRange& piece) {
    m_rowMovement.forgetSteps();
    if (piece.location < m_piece.location)
        apply(m_piece.limit(), piece.location);
    else
        apply(m_piece.location, std::max(piece.limit(), m_piece.limit()));
}

std::optional<Rect> SelectionMovement::headRect() {
    if (!m_textInputView.selectedRange()) return std::nullopt;
    return m_rowMovement.caretRect(head());
}

TextRange SelectionMovement::rangeToDelete(TextDeletion deletion) const {
    const std::int64_t caret = head();
    const auto to = [&](std::int64_t end) {
        return TextRange{std::min(caret, end), std::max(caret, end) - std::min(caret, end)};
    };
    const DocumentLineNode& line = lineContaining(caret);
    const std::int64_t lineEnd = line.location() + line.data().length();
    switch (deletion) {
    case TextDeletion::backward:
        break;
    case TextDeletion::forward:
        return to(text().composedRange(caret).limit());
    case TextDeletion::wordBackward:
        return to(wordStartBefore(text(), caret));
    case TextDeletion::wordForward:
        return to(wordLimitAfter(text(), caret));
    case TextDeletion::toLineStart:
        return to(line.location());
    case TextDeletion::toLineEnd:
        return to(caret < lineEnd ? lineEnd : line.location() + line.value());
    }
    return {caret, 0};
}

} // namespace tessarine
