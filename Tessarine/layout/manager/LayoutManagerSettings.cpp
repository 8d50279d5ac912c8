// The setters of the layout manager, and what they make necessary.

#include "Tessarine/layout/manager/LayoutManager.h"

#include <utility>

namespace tessarine {

template <class Value>
bool LayoutManager::change(Value& current, Value value) {
    if (current == value) return false;
    current = std::move(value);
    return true;
}

// Of all lines.
void LayoutManager::lineSettingsDidChange() {
    m_lineControllers.settingsDidChange();
    widthsDidChange();
}

// Of rows, gutter or surroundings.
void LayoutManager::widthsDidChange() {
    m_contentSize.setShouldResetLineWidths();
    m_contentSize.invalidate();
    updateGutterWidth();
    setNeedsLayout();
}

void LayoutManager::updateGutterWidth() {
    m_lineNumberWidth.update(m_context);
    if (!change(m_gutterWidth, m_geometry.gutterWidth())) return;
    m_contentSize.invalidateWidth();
    if (const auto delegate = m_delegate.lock()) delegate->layoutManagerDidChangeGutterWidth();
    setNeedsLayout();
}

void LayoutManager::setDocument(const EditedDocument& document) {
    m_context.document = document;
    removeAllLines();
    setNeedsLayout();
}

void LayoutManager::setLanguageMode(std::shared_ptr<InternalLanguageMode> languageMode) {
    m_context.document.languageMode = std::move(languageMode);
    m_lineControllers.highlightersDidChange();
    setNeedsLayout();
}

void LayoutManager::setTheme(std::shared_ptr<const Theme> theme) {
    if (change(m_context.theme, std::move(theme))) lineSettingsDidChange();
}

void LayoutManager::setScrollViewWidth(double width) {
    if (change(m_context.scrollViewWidth, width)) widthsDidChange();
}

void LayoutManager::setViewport(const Rect& viewport) {
    const Size oldSize = m_context.viewport.size();
    if (!change(m_context.viewport, viewport)) return;
    setNeedsLayout(viewport.size() == oldSize ? Cause::Scrolling : Cause::Change);
}

void LayoutManager::setTextContainerInset(const EdgeInsets& inset) {
    if (change(m_context.textContainerInset, inset)) widthsDidChange();
}

void LayoutManager::setLineWrappingEnabled(bool isEnabled) {
    if (change(m_context.isLineWrappingEnabled, isEnabled)) widthsDidChange();
}

void LayoutManager::setLineBreakMode(LineBreakMode mode) {
    if (change(m_context.lineBreakMode, mode)) lineSettingsDidChange();
}

void LayoutManager::setLineHeightMultiplier(double multiplier) {
    if (change(m_context.lineHeightMultiplier, multiplier)) lineSettingsDidChange();
}

void LayoutManager::setKern(double kern) {
    if (change(m_context.kern, kern)) lineSettingsDidChange();
}

void LayoutManager::setTabWidth(double tabWidth) {
    if (change(m_context.tabWidth, tabWidth)) lineSettingsDidChange();
}

void LayoutManager::setInvisibleCharacterConfiguration(
    std::shared_ptr<const InvisibleCharacterConfiguration> configuration) {
    if (!change(m_context.invisibleCharacterConfiguration, std::move(configuration))) return;
    m_contentSize.invalidateWidth();
    redisplayVisibleLines();
}

void LayoutManager::setShowLineNumbers(bool showsNumbers) {
    if (change(m_context.showLineNumbers, showsNumbers)) widthsDidChange();
}

void LayoutManager::setGutterPadding(double leading, double trailing) {
    const bool isNewLeading = change(m_context.gutterLeadingPadding, leading);
    const bool isNewTrailing = change(m_context.gutterTrailingPadding, trailing);
    if (isNewLeading || isNewTrailing) widthsDidChange();
}

void LayoutManager::setEditing(bool isEditing) {
    if (change(m_context.isEditing, isEditing)) setNeedsLayoutLineSelection();
}

void LayoutManager::setLineSelectionDisplayType(LineSelectionDisplayType type) {
    if (change(m_context.lineSelectionDisplayType, type)) setNeedsLayoutLineSelection();
}

void LayoutManager::setSelectedRange(std::optional<TextRange> range) {
    if (change(m_context.selectedRange, range)) setNeedsLayoutLineSelection();
}

void LayoutManager::setMarkedRange(std::optional<TextRange> range) {
    if (change(m_context.markedRange, range)) setNeedsLayout();
}

void LayoutManager::setHighlightedRanges(const HighlightedRangeIndex::Ranges& ranges) {
    m_highlights.setHighlightedRanges(ranges);
    setNeedsLayout();
}

} // namespace tessarine
