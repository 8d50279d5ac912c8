// What edits the text of a text view, and who is asked and told of it.

#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/textview/TextView.h"

#include <utility>

namespace tessarine {

template <class Work>
void TextView::edit(Work work) {
    if (!m_isEditable) return;
    work(*m_textInputView);
    syncMarkedRange();
}

void TextView::insertText(std::u16string_view text) {
    edit([&](TextInputView& view) { view.insertText(text); });
}

void TextView::replace(const TextRange& range, std::u16string_view text) {
    edit([&](TextInputView& view) { view.replace(range, text); });
}

void TextView::paste(std::u16string_view text) {
    edit([&](TextInputView& view) { view.paste(text); });
}

void TextView::moveText(const TextRange& range, std::int64_t location) {
    edit([&](TextInputView& view) { view.moveText(range, location); });
}

void TextView::shiftLeft() {
    edit([](TextInputView& view) { view.shiftLeft(); });
}

void TextView::shiftRight() {
    edit([](TextInputView& view) { view.shiftRight(); });
}

void TextView::moveSelectedLinesUp() {
    edit([](TextInputView& view) { view.moveSelectedLines(-1, moveLinesUpActionName); });
}

void TextView::moveSelectedLinesDown() {
    edit([](TextInputView& view) { view.moveSelectedLines(1, moveLinesDownActionName); });
}

void TextView::replaceText(const BatchReplaceSet& replacements) {
    edit([&](TextInputView& view) { view.replaceText(replacements); });
}

void TextView::takeChange(const TextRange& range, std::u16string_view text) {
    edit([&](TextInputView& view) { view.takeChange(range, text); });
}

void TextView::undo() {
    edit([](TextInputView& view) { view.undoManager().undo(); });
}

void TextView::redo() {
    edit([](TextInputView& view) { view.undoManager().redo(); });
}

void TextView::setMarkedText(std::u16string_view text, const TextRange& selectedInText) {
    edit([&](TextInputView& view) { view.setMarkedText(text, selectedInText); });
}

void TextView::unmarkText() {
    m_textInputView->unmarkText();
    syncMarkedRange();
}

void TextView::deleteText(TextDeletion deletion) {
    edit([&](TextInputView& view) {
        const auto& selection = view.selectedRange();
        if (view.markedRange() || (selection && selection->length > 0)) return view.deleteBackward();
        if (!selection) return;
        if (deletion == TextDeletion::backward) return view.deleteInFrontOfCaret();
        const TextRange range = m_movement.rangeToDelete(deletion);
        if (range.length > 0) view.replace(range, u"");
    });
}

void TextView::setInputDelegate(std::weak_ptr<TextInputDelegate> delegate) {
    m_textInputView->setInputDelegate(std::move(delegate));
}

// The layout has a marked range of its own, which edits do not know of.
void TextView::syncMarkedRange() {
    std::optional<TextRange> marked = markedRange();
    if (marked) marked = m_textInputView->inText(*marked);
    m_layoutManager->setMarkedRange(marked);
}

bool TextView::textInputViewShouldChangeText(const TextRange& range, std::u16string_view text) {
    const auto delegate = editorDelegate();
    return !delegate || delegate->textViewShouldChangeText(*this, range, text);
}

bool TextView::textInputViewShouldInsertCharacterPair(const CharacterPair& pair, const TextRange& range) {
    const auto delegate = editorDelegate();
    return !delegate || delegate->textViewShouldInsertCharacterPair(*this, pair, range);
}

bool TextView::textInputViewShouldSkipTrailingComponent(const CharacterPair& pair, const TextRange& range) {
    const auto delegate = editorDelegate();
    return !delegate || delegate->textViewShouldSkipTrailingComponentOfCharacterPair(*this, pair, range);
}

void TextView::textInputViewDidReplace(const TextRange& range, std::u16string_view oldText,
                                       std::u16string_view newText) {
    const TextReplacement replacement{range, std::ssize(newText)};
    m_layoutManager->textDidChange(replacement);
    m_highlightNavigationController.textDidChange(replacement);
    m_layoutManager->setSelectedRange(selectedRange());
    syncMarkedRange();
    if (!m_host.expired())
        m_untoldReplacements.push_back({range, std::u16string(oldText), std::u16string(newText)});
}

void TextView::textInputViewDidExchangeText() {
    forgetHighlightedRanges();
    m_layoutManager->setSelectedRange(selectedRange());
    m_hasUntoldExchange = true;
}

void TextView::textInputViewDidChange() {
    setNeedsSelectionLayout();
    tellHost([this](TextViewHost& host) { tellOfReplacements(host); });
    if (const auto delegate = editorDelegate()) delegate->textViewDidChange(*this);
}

// Hosts may edit from within: what has been told is not told again.
void TextView::tellOfReplacements(TextViewHost& host) {
    const auto replacements = std::exchange(m_untoldReplacements, {});
    if (std::exchange(m_hasUntoldExchange, false)) return host.textViewDidReplaceAll();
    for (const auto& [range, oldText, newText] : replacements)
        host.textViewDidReplace(range, oldText, newText);
}

void TextView::textInputViewDidChangeSelection() {
    m_highlightNavigationController.setSelectedRange(selectedRange());
    m_layoutManager->setSelectedRange(selectedRange());
    setNeedsSelectionLayout();
    if (selectedRange() && selectedRange()->length == 0)
        textInputViewScrollToVisible(selectedRange()->location);
    tellHost([](TextViewHost& host) { host.textViewDidMoveCaret(); });
    if (const auto delegate = editorDelegate()) delegate->textViewDidChangeSelection(*this);
}

} // namespace tessarine
