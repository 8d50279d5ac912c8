#include "Tessarine/document/TextReplacement.h"
#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/editing/TextEditHelper.h"
#include "Tessarine/editing/TextInputView.h"

#include <algorithm>

namespace tessarine {

// What is marked goes along with the text, and is settled by an edit that touches it.
void TextInputView::replaceCharacters(TextRange range, std::u16string_view text,
                                      std::optional<TextRange> selectedRangeAfterUndo,
                                      std::string_view undoActionName) {
    if (m_markedRange) m_markedRange = TextReplacement{range, std::ssize(text)}.moved(*m_markedRange);
    exchangeCharacters(range, text, selectedRangeAfterUndo, undoActionName);
}

void TextInputView::exchangeCharacters(TextRange range, std::u16string_view text,
                                       std::optional<TextRange> selectedRangeAfterUndo,
                                       std::string_view undoActionName) {
    const TextRange newRange{range.location, std::ssize(text)};
    const std::u16string oldText = m_document.stringView->substring(range.location, range.length);
    registerReplacement(oldText, newRange, selectedRangeAfterUndo ? selectedRangeAfterUndo : m_selectedRange,
                        undoActionName);
    m_selectedRange = TextRange{newRange.limit(), 0};
    TextEditHelper helper(*m_document.stringView, *m_document.lineManager, m_lineEndings);
    TextEditResult result = helper.replaceCharacters(range, text);
    const bool didAddOrRemoveLines = result.didAddOrRemoveLines();
    result.lineChangeSet.unionWith(m_document.languageMode->textDidChange(result.languageModeTextChange()));
    if (const auto viewDelegate = delegate()) viewDelegate->textInputViewDidReplace(range, oldText, text);
    applyLineChanges(result.lineChangeSet);
    m_layout->layoutIfNeeded();
    tellChange();
    if (didAddOrRemoveLines) updateContentSize();
    tellSelectionChange();
}

// What undoes it is a replacement again, and so is redone.
void TextInputView::registerReplacement(std::u16string oldText, TextRange newRange,
                                        std::optional<TextRange> selectedRangeAfterUndo,
                                        std::string_view undoActionName) {
    m_undoManager.beginUndoGrouping();
    m_undoManager.setActionName(localizedString(undoActionName));
    m_undoManager.registerUndo(weak_from_this(),
                               [newRange, selectedRangeAfterUndo, name = std::string(undoActionName),
                                oldText = std::move(oldText)](TextInputView& view) {
                                   view.replaceCharacters(view.inText(newRange), oldText, std::nullopt, name);
                                   view.setSelectedRange(selectedRangeAfterUndo);
                               });
}

void TextInputView::applyLineChanges(const LineChangeSet& changes) {
    const bool didAddOrRemoveLines = !changes.insertedLines().isEmpty() || !changes.removedLines().isEmpty();
    if (didAddOrRemoveLines) {
        m_layout->invalidateContentSize();
        for (const DocumentLineNodeReference& line : changes.removedLines())
            m_layout->removeLine(line->id());
    }
    m_layout->typesetLines(changes.editedLines());
    if (didAddOrRemoveLines) m_layout->lineCountDidChange();
    m_layout->setNeedsLayout();
}

void TextInputView::updateContentSize() {
    const auto viewDelegate = delegate();
    if (viewDelegate && viewDelegate->textInputViewContentSize() != m_layout->contentSize())
        viewDelegate->textInputViewNeedsContentSizeUpdate();
}

void TextInputView::tellChange() {
    const auto viewDelegate = delegate();
    if (!viewDelegate) return;
    if (m_selectedRange && m_selectedRange->length == 0)
        viewDelegate->textInputViewScrollToVisible(m_selectedRange->location);
    viewDelegate->textInputViewDidChange();
}

void TextInputView::tellSelectionChange() {
    if (const auto viewDelegate = delegate()) viewDelegate->textInputViewDidChangeSelection();
}

void TextInputView::takeChange(TextRange range, std::u16string_view text) {
    const TextReplacement change{inText(range), std::ssize(text)};
    const auto selection = m_selectedRange;
    beginUndoStep();
    replaceCharacters(change.range, text, selection, replaceAllActionName);
    m_undoManager.endUndoGrouping();
    if (!selection) return;
    const std::int64_t start = change.movedLocation(selection->location);
    selectAnew(inText({start, change.movedLocation(selection->limit()) - start}));
}

void TextInputView::setStringWithUndoAction(TextStore text) {
    const TextSnapshot oldText = m_document.stringView->snapshot();
    if (text.text() == oldText) return;
    m_undoManager.endUndoGrouping();
    const auto oldSelection = m_selectedRange;
    setString(std::move(text));
    m_undoManager.beginUndoGrouping();
    m_undoManager.setActionName(localizedString(replaceAllActionName));
    m_undoManager.registerUndo(weak_from_this(), [oldText, oldSelection](TextInputView& view) {
        view.setStringWithUndoAction(TextStore(oldText));
        view.setSelectedRange(oldSelection);
    });
    m_undoManager.endUndoGrouping();
    tellChange();
    if (oldSelection && inText(*oldSelection) != oldSelection) selectAnew(inText(*oldSelection));
}

// For a selection that the input system does not know of.
void TextInputView::selectAnew(TextRange range) {
    const auto inputDelegate = m_inputDelegate.lock();
    if (inputDelegate) inputDelegate->selectionWillChange();
    m_selectedRange = range;
    if (inputDelegate) inputDelegate->selectionDidChange();
    tellSelectionChange();
}

void TextInputView::setString(TextStore text) {
    if (text.text() == m_document.stringView->snapshot()) return;
    m_markedRange.reset();
    m_document.stringView->setInternalString(std::move(text));
    m_document.languageMode->parse(m_document.stringView->snapshot());
    m_document.lineManager->rebuild();
    const auto inputDelegate = m_inputDelegate.lock();
    if (inputDelegate) inputDelegate->selectionWillChange();
    if (m_selectedRange) m_selectedRange = inText(*m_selectedRange);
    if (const auto viewDelegate = delegate()) viewDelegate->textInputViewDidExchangeText();
    m_layout->invalidateContentSize();
    m_layout->removeAllLines();
    m_layout->setNeedsLayout();
    if (inputDelegate) inputDelegate->selectionDidChange();
    if (const auto viewDelegate = delegate()) viewDelegate->textInputViewDidChange();
}

void TextInputView::replaceText(const BatchReplaceSet& replacements) {
    if (replacements.replacements.empty()) return;
    const auto caret =
        m_selectedRange ? m_document.lineManager->linePosition(m_selectedRange->location) : std::nullopt;
    TextEditHelper helper(*m_document.stringView, *m_document.lineManager, m_lineEndings);
    setStringWithUndoAction(helper.applyBatchReplacements(replacements));
    if (caret) setSelectedRange(TextRange{locationNear(*caret), 0});
}

// In the same row as far as there is one, and not behind what the line holds.
std::int64_t TextInputView::locationNear(const LinePosition& position) const {
    const LineManager& lines = *m_document.lineManager;
    const DocumentLineNode& line = lines.lineAtRow(std::min(position.row, lines.lineCount() - 1));
    return line.location() + std::min(position.column, line.data().length());
}

} // namespace tessarine
