#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/editing/TextInputView.h"

#include <algorithm>

namespace tessarine {

void TextInputView::moveSelectedLines(std::int64_t offset, std::string_view undoActionName) {
    if (!m_selectedRange) return;
    const LineManager& lines = *m_document.lineManager;
    const auto selected = lines.firstAndLastLine(m_selectedRange->location, m_selectedRange->length);
    if (!selected) return;
    const auto& [first, last] = *selected;
    const std::int64_t targetRow = (offset > 0 ? last : first)->index() + offset;
    if (targetRow < 0 || targetRow >= lines.lineCount()) return;
    const DocumentLineNode& target = lines.lineAtRow(targetRow);
    const TextRange removed{first->location(), last->location() + last->value() - first->location()};
    const std::int64_t insertLocation =
        offset < 1 ? target.location() : target.location() + target.value() - removed.length;
    const std::u16string_view lineBreak = symbol(m_lineEndings);
    std::u16string text = m_document.stringView->substring(removed.location, removed.length);
    std::int64_t start = insertLocation; // of the lines there
    if (last->data().delimiterLength() == 0) {
        text += lineBreak;
    } else if (offset > 0 && target.data().delimiterLength() == 0) {
        // The last line has no break that could stay behind it. Put in as they are, the lines would go on
        // within it and two lines would have become one, so the break goes in front of them.
        text.resize(text.size() - static_cast<std::size_t>(last->data().delimiterLength()));
        text.insert(0, lineBreak);
        start += std::ssize(lineBreak);
    }
    moveText(removed, insertLocation, text,
             {m_selectedRange->location + start - removed.location, m_selectedRange->length}, undoActionName);
}

void TextInputView::moveText(TextRange range, std::int64_t location) {
    const TextRange moved = inText(range);
    const std::int64_t target = inText({location, 0}).location;
    if (moved.length == 0 || (target >= moved.location && target <= moved.limit())) return;
    const std::int64_t start = target > moved.location ? target - moved.length : target;
    const std::u16string text = m_document.stringView->substring(moved.location, moved.length);
    if (!delegateAllows(moved, u"") || !delegateAllows({target, 0}, text)) return;
    moveText(inText(moved), start, text, {start, moved.length}, typingActionName);
}

// The location is one of the text without the range.
void TextInputView::moveText(TextRange range, std::int64_t location, std::u16string_view text,
                             TextRange selectionThere, std::string_view undoActionName) {
    const auto selection = m_selectedRange;
    beginUndoStep();
    replaceCharacters(range, u"", selection, undoActionName);
    replaceCharacters(inText({location, 0}), text, selection, undoActionName);
    selectAnew(inText(selectionThere));
    m_undoManager.endUndoGrouping();
}

void TextInputView::paste(std::u16string_view text) {
    if (!m_selectedRange) return;
    const std::u16string prepared = withLineEndings(text);
    if (!delegateAllows(*m_selectedRange, prepared)) return;
    m_markedRange.reset();
    beginUndoStep();
    replaceCharacters(inText(*m_selectedRange), prepared, std::nullopt, typingActionName);
    m_undoManager.endUndoGrouping();
}

// Character pairs have no part in it: the text may still become another one.
void TextInputView::setMarkedText(std::u16string_view text, TextRange selectedRange) {
    const auto range = targetRange();
    if (!range) return;
    const std::u16string prepared = withLineEndings(text);
    if (!delegateAllows(*range, prepared)) return;
    const TextRange target = inText(*range);
    m_markedRange.reset();
    if (!prepared.empty()) m_markedRange = TextRange{target.location, std::ssize(prepared)};
    exchangeCharacters(target, prepared, std::nullopt, typingActionName);
    if (!m_markedRange) return;
    const TextRange marked = inText(*m_markedRange);
    const std::int64_t start = std::clamp<std::int64_t>(selectedRange.location, 0, marked.length);
    const std::int64_t length = std::clamp<std::int64_t>(selectedRange.length, 0, marked.length - start);
    setSelectedRange(TextRange{marked.location + start, length});
}

} // namespace tessarine
