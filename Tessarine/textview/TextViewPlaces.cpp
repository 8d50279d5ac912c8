// Places in the text of a text view, search and highlighted ranges.

#include "Tessarine/textview/TextView.h"

#include <algorithm>
#include <utility>

namespace tessarine {

void TextView::setSelectedRange(std::optional<TextRange> range) {
    if (range)
        m_movement.select(m_textInputView->inText(*range).location, m_textInputView->inText(*range).limit());
    else
        m_textInputView->setSelectedRange(std::nullopt);
}

void TextView::moveCaret(CaretMovement movement, SelectionMode mode) {
    m_movement.move(movement, mode);
    if (selectedRange() && selectedRange()->length > 0) textInputViewScrollToVisible(m_movement.head());
}

Rect TextView::firstRect(const TextRange& range) {
    return m_layoutManager->firstRect(m_textInputView->inText(range));
}

std::vector<TextSelectionRect> TextView::selectionRects(const TextRange& range) {
    return m_layoutManager->selectionRects(range);
}

// A place within a character belongs to its start.
std::int64_t TextView::closestIndex(const Point& point) {
    const std::int64_t index = m_layoutManager->closestIndex(point);
    const TextRange character = document().stringView->composedRange(index);
    return index < character.limit() ? character.location : index;
}

std::u16string TextView::text(const TextRange& range) const {
    const TextRange inText = m_textInputView->inText(range);
    return document().stringView->substring(inText.location, inText.length);
}

std::optional<LinePosition> TextView::linePosition(std::int64_t location) const {
    return document().lineManager->linePosition(location);
}

std::optional<TextLocation> TextView::textLocation(std::int64_t location) const {
    const auto position = linePosition(location);
    if (!position) return std::nullopt;
    return TextLocation{position->row, position->column};
}

std::optional<std::int64_t> TextView::location(const TextLocation& textLocation) const {
    const LineManager& lines = *document().lineManager;
    if (textLocation.lineNumber < 0 || textLocation.lineNumber >= lines.lineCount() ||
        textLocation.column < 0)
        return std::nullopt;
    const DocumentLineNode& line = lines.lineAtRow(textLocation.lineNumber);
    return line.location() + std::min(textLocation.column, line.data().length());
}

bool TextView::goToLine(std::int64_t lineIndex, GoToLineSelection selection) {
    const LineManager& lines = *document().lineManager;
    if (lineIndex < 0 || lineIndex >= lines.lineCount()) return false;
    const DocumentLineNode& line = lines.lineAtRow(lineIndex);
    const TextRange content{line.location(), line.data().length()};
    scrollRangeToVisible({content.location, 0});
    switch (selection) {
    case GoToLineSelection::beginning:
        setSelectedRange(TextRange{content.location, 0});
        break;
    case GoToLineSelection::end:
        setSelectedRange(TextRange{content.limit(), 0});
        break;
    case GoToLineSelection::line:
        setSelectedRange(content);
        break;
    }
    return true;
}

std::optional<SyntaxNode> TextView::syntaxNode(std::int64_t location) const {
    const auto position = linePosition(location);
    return position ? document().languageMode->syntaxNode(*position) : std::nullopt;
}

TextInputPositions TextView::positions() const {
    return {*document().stringView, m_lineMovementController};
}

TextInputStringTokenizer TextView::tokenizer() const {
    return {document().stringView, document().lineManager};
}

SearchController TextView::searchController() const {
    SearchController controller(document().stringView);
    controller.setDelegate(weak_from_this());
    return controller;
}

std::vector<SearchResult> TextView::search(const SearchQuery& query) const {
    return searchController().search(query);
}

std::vector<SearchReplaceResult> TextView::search(const SearchQuery& query,
                                                  std::u16string_view replacementString) const {
    return searchController().search(query, replacementString);
}

std::optional<TextPreview> TextView::textPreview(const TextRange& range) const {
    return tessarine::textPreview(*document().lineManager, range);
}

HighlightNavigationController::Ranges TextView::highlightedRanges() const {
    return m_highlightNavigationController.highlightedRanges();
}

void TextView::setHighlightedRanges(const HighlightNavigationController::Ranges& ranges) {
    m_highlightNavigationController.setHighlightedRanges(ranges);
    m_layoutManager->setHighlightedRanges(ranges);
}

void TextView::forgetHighlightedRanges() {
    setHighlightedRanges({});
}

void TextView::setHighlightedRangeLoopingMode(HighlightedRangeLoopingMode mode) {
    m_highlightedRangeLoopingMode = mode;
    m_highlightNavigationController.setLoopRanges(mode == HighlightedRangeLoopingMode::enabled);
}

void TextView::selectPreviousHighlightedRange() {
    m_highlightNavigationController.selectPrevious();
}

void TextView::selectNextHighlightedRange() {
    m_highlightNavigationController.selectNext();
}

void TextView::selectHighlightedRange(std::int64_t index) {
    m_highlightNavigationController.selectRange(index);
}

void TextView::didNavigate(const HighlightNavigationStep& step) {
    using Loop = HighlightNavigationStep::Loop;
    const TextRange range = m_textInputView->inText(step.range);
    beginEditing();
    m_layoutManager->typesetLines(range.limit());
    scrollRangeToVisible(range);
    setSelectedRange(range);
    const auto delegate = editorDelegate();
    if (delegate && step.loop == Loop::toLast) delegate->textViewDidLoopToLastHighlightedRange(*this);
    if (delegate && step.loop == Loop::toFirst) delegate->textViewDidLoopToFirstHighlightedRange(*this);
}

std::shared_ptr<const HighlightedRange> TextView::selectedHighlightedRange() const {
    const auto ranges = highlightedRanges();
    const auto found = std::ranges::find_if(
        ranges, [&](const auto& highlighted) { return highlighted->range == selectedRange(); });
    return found == ranges.end() ? nullptr : *found;
}

bool TextView::canReplaceTextInHighlightedRange() {
    const auto range = selectedHighlightedRange();
    const auto delegate = editorDelegate();
    return range && delegate && delegate->textViewCanReplaceTextInHighlightedRange(*this, *range);
}

void TextView::replaceTextInHighlightedRange() {
    const auto range = selectedHighlightedRange();
    const auto delegate = editorDelegate();
    if (range && delegate) delegate->textViewReplaceTextInHighlightedRange(*this, *range);
}

} // namespace tessarine
