// How a text view looks and types.

#include "Tessarine/textview/TextView.h"

#include <utility>

namespace tessarine {

void TextView::setTheme(std::shared_ptr<const Theme> theme) {
    m_layoutManager->setTheme(std::move(theme));
    showTheme();
}

// Lines that there are keep the heights that they have.
void TextView::showTheme() {
    const Theme& theme = *this->theme();
    m_textInputView->setIndentFont(theme.font());
    document().lineManager->setEstimatedLineHeight(m_textMeasurer->metrics(theme.font()).lineHeight());
    m_pageGuideController.setFont(theme.font());
    m_pageGuideController.setTheme(theme);
    m_invisibleCharacterConfiguration->setFont(theme.font());
    m_invisibleCharacterConfiguration->setTextColor(theme.invisibleCharactersColor());
    m_layoutManager->redisplayVisibleLines();
    showHairlines();
    setNeedsSelectionLayout();
}

void TextView::showHairlines() {
    m_layoutManager->gutter().gutterBackgroundView().setHairlineWidth(
        theme()->gutterHairlineWidth(m_screenScale));
    m_pageGuideController.guideView()->setScreenScale(m_screenScale);
}

void TextView::setSelectionBarColor(const Color& color) {
    m_selectionBarColor = color;
    setNeedsSelectionLayout();
}

void TextView::setShowLineNumbers(bool showsNumbers) {
    m_layoutManager->setShowLineNumbers(showsNumbers);
}

void TextView::setGutterLeadingPadding(double padding) {
    m_layoutManager->setGutterPadding(padding, gutterTrailingPadding());
}

void TextView::setGutterTrailingPadding(double padding) {
    m_layoutManager->setGutterPadding(gutterLeadingPadding(), padding);
}

void TextView::setShowPageGuide(bool showsGuide) {
    m_showPageGuide = showsGuide;
    setNeedsSelectionLayout();
}

void TextView::setPageGuideColumn(std::int64_t column) {
    m_pageGuideController.setColumn(column);
    setNeedsSelectionLayout();
}

void TextView::setLineSelectionDisplayType(LineSelectionDisplayType type) {
    m_layoutManager->setLineSelectionDisplayType(type);
}

void TextView::setLineHeightMultiplier(double multiplier) {
    m_layoutManager->setLineHeightMultiplier(multiplier);
}

void TextView::setKern(double kern) {
    m_layoutManager->setKern(kern);
    m_pageGuideController.setKern(kern);
}

void TextView::setLineWrappingEnabled(bool isEnabled) {
    m_layoutManager->setLineWrappingEnabled(isEnabled);
}

void TextView::setLineBreakMode(LineBreakMode mode) {
    m_layoutManager->setLineBreakMode(mode);
}

void TextView::setTextContainerInset(const EdgeInsets& inset) {
    m_layoutManager->setTextContainerInset(inset);
}

void TextView::changeInvisibleCharacterConfiguration(
    const std::function<void(InvisibleCharacterConfiguration&)>& change) {
    change(*m_invisibleCharacterConfiguration);
    m_layoutManager->invalidateContentSize();
    m_layoutManager->redisplayVisibleLines();
}

void TextView::setIndentStrategy(const IndentStrategy& strategy) {
    m_textInputView->setIndentStrategy(strategy);
}

void TextView::setCharacterPairs(CharacterPairs::List pairs) {
    m_textInputView->characterPairs().setList(std::move(pairs));
}

void TextView::setCharacterPairTrailingComponentDeletionMode(
    CharacterPairTrailingComponentDeletionMode mode) {
    m_textInputView->characterPairs().setTrailingComponentDeletionMode(mode);
}

} // namespace tessarine
