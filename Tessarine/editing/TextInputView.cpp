#include "Tessarine/editing/TextInputView.h"

#include "Tessarine/editing/CharacterPairTyping.h"
#include "Tessarine/editing/LocalizedString.h"
#include "Tessarine/editing/TextEditHelper.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/syntax/TextProvider.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/theme/DefaultTheme.h"

namespace tessarine {

std::shared_ptr<TextInputView> TextInputView::create(std::shared_ptr<TextInputLayout> layout,
                                                     std::shared_ptr<TimerScheduler> timerScheduler,
                                                     std::shared_ptr<const TextMeasurer> textMeasurer) {
    const std::shared_ptr<TextInputView> view(new TextInputView( // NOLINT: the constructor is private
        std::move(layout), std::move(timerScheduler), std::move(textMeasurer)));
    view->m_indentController.setDelegate(view);
    view->setDocument(view->m_document);
    return view;
}

TextInputView::TextInputView(std::shared_ptr<TextInputLayout> layout,
                             std::shared_ptr<TimerScheduler> timerScheduler,
                             std::shared_ptr<const TextMeasurer> textMeasurer)
    : m_layout(std::move(layout))
    , m_document(EditedDocument::empty())
    , m_undoManager(std::move(timerScheduler))
    , m_indentController(m_document, std::move(textMeasurer), DefaultTheme().font()) {}

void TextInputView::setState(const TextViewState& state) {
    m_undoManager.removeAllActions();
    m_markedRange.reset();
    setDocument(state.document());
    if (m_selectedRange) selectAnew(inText(*m_selectedRange));
}

void TextInputView::setDocument(EditedDocument document) {
    m_document = std::move(document);
    setLanguageMode(m_document.languageMode);
    m_layout->setDocument(m_document);
    m_layout->setTabWidth(m_indentController.tabWidth());
    m_layout->invalidateContentSize();
    m_layout->removeAllLines();
    m_layout->setNeedsLayout();
}

void TextInputView::setLanguageMode(std::shared_ptr<InternalLanguageMode> languageMode) {
    m_document.languageMode = std::move(languageMode);
    const auto mode = std::dynamic_pointer_cast<TreeSitterInternalLanguageMode>(m_document.languageMode);
    if (mode) mode->setDelegate(weak_from_this());
    m_indentController.setDocument(m_document);
}

std::u16string TextInputView::withLineEndings(std::u16string_view text) const {
    return TextEditHelper(*m_document.stringView, *m_document.lineManager, m_lineEndings)
        .withLineEndings(text);
}

void TextInputView::setIndentStrategy(const IndentStrategy& strategy) {
    m_indentController.setIndentStrategy(strategy);
    m_layout->setTabWidth(m_indentController.tabWidth());
}

void TextInputView::setIndentFont(Font font) {
    m_indentController.setIndentFont(std::move(font));
    m_layout->setTabWidth(m_indentController.tabWidth());
}

void TextInputView::setSelectedRange(std::optional<TextRange> range) {
    if (range) range = inText(*range);
    if (m_selectedRange == range) return;
    m_selectedRange = range;
    tellSelectionChange();
}

void TextInputView::setMarkedRange(std::optional<TextRange> range) {
    if (range) range = inText(*range);
    m_markedRange = range;
}

// Edits keep the selection in the text, but not the marked range.
std::optional<TextRange> TextInputView::targetRange() const {
    return m_markedRange ? inText(*m_markedRange) : m_selectedRange;
}

bool TextInputView::insertText(std::u16string_view text) {
    const std::u16string prepared = withLineEndings(text);
    const bool isLineBreak = lineEndingFromSymbol(text).has_value();
    const auto range = targetRange();
    if (!range || !shouldChangeText(*range, prepared)) return false;
    m_markedRange.reset();
    if (isLineBreak) {
        m_indentController.insertLineBreak(inText(*range), m_lineEndings);
        m_layout->layoutIfNeeded();
    } else {
        replaceCharacters(inText(*range), prepared, std::nullopt, typingActionName);
    }
    return true;
}

void TextInputView::deleteBackward() {
    const auto range = targetRange();
    if (range && range->length > 0) deleteCharacters(*range, std::nullopt);
}

void TextInputView::deleteInFrontOfCaret() {
    const auto caret = targetRange();
    if (!caret || caret->length > 0 || caret->location == 0) return;
    deleteCharacters({caret->location - 1, 1}, caret);
}

void TextInputView::deleteCharacters(TextRange range, std::optional<TextRange> selectedRangeAfterUndo) {
    const TextRange deletion = rangeToDelete(range);
    if (deletion == m_markedRange) m_markedRange.reset();
    if (!shouldChangeText(deletion, u"")) return;
    if (!selectedRangeAfterUndo && deletion.length == 1) selectedRangeAfterUndo = TextRange{range.limit(), 0};
    const bool isStepOfItsOwn = range.length >= 2;
    if (isStepOfItsOwn) beginUndoStep();
    replaceCharacters(inText(deletion), u"", selectedRangeAfterUndo, typingActionName);
    if (const auto inputDelegate = m_inputDelegate.lock()) inputDelegate->selectionChanged();
    if (isStepOfItsOwn) m_undoManager.endUndoGrouping();
}

// Of what is done until its group ends.
void TextInputView::beginUndoStep() {
    m_undoManager.endUndoGrouping();
    m_undoManager.beginUndoGrouping();
}

TextRange TextInputView::rangeToDelete(TextRange range) const {
    const auto indent =
        range.length == 1 ? m_indentController.indentRangeInFrontOfLocation(range.limit()) : std::nullopt;
    const StringView& text = *m_document.stringView;
    return m_characterPairs.grownByTrailingComponent(
        indent ? *indent : text.composedRange(range.location, range.length), text);
}

void TextInputView::replace(TextRange range, std::u16string_view text) {
    const std::u16string prepared = withLineEndings(text);
    if (shouldChangeText(inText(range), prepared))
        replaceCharacters(inText(range), prepared, std::nullopt, typingActionName);
}

bool TextInputView::shouldChangeText(TextRange range, std::u16string_view text) {
    return !CharacterPairTyping(*this).handle(range, text) && delegateAllows(range, text);
}

bool TextInputView::delegateAllows(TextRange range, std::u16string_view text) const {
    const auto viewDelegate = delegate();
    return !viewDelegate || viewDelegate->textInputViewShouldChangeText(range, text);
}

void TextInputView::shiftLeft() {
    shift(&IndentController::shiftLeft);
}

void TextInputView::shiftRight() {
    shift(&IndentController::shiftRight);
}

void TextInputView::shift(void (IndentController::*shiftLines)(TextRange)) {
    if (!m_selectedRange) return;
    const auto inputDelegate = m_inputDelegate.lock();
    if (inputDelegate) {
        inputDelegate->selectionWillChange();
        inputDelegate->textWillChange();
    }
    (m_indentController.*shiftLines)(*m_selectedRange);
    if (inputDelegate) {
        inputDelegate->textDidChange();
        inputDelegate->selectionDidChange();
    }
    tellSelectionChange();
}

void TextInputView::indentControllerReplaceText(TextRange range, std::u16string_view text) {
    replaceCharacters(inText(range), text, std::nullopt, typingActionName);
}

void TextInputView::indentControllerSelect(TextRange range) {
    m_selectedRange = inText(range);
    tellSelectionChange();
}

std::optional<TreeSitterTextProviderResult> TextInputView::treeSitterLanguageMode(ByteCount byteIndex) {
    return textProviderResult(m_document.stringView->snapshot(), byteIndex);
}

void TextInputView::treeSitterLanguageModeDidReparse(const LineChangeSet& changes) {
    m_layout->typesetLines(changes.editedLines());
    m_layout->setNeedsLayout();
}

} // namespace tessarine
