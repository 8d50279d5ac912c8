#include "Tessarine/layout/LineFragmentRenderer.h"

#include "Tessarine/document/search/Characters.h"
#include "Tessarine/layout/DrawStateScope.h"

namespace tessarine {

void LineFragmentRenderer::draw(DrawContext& context) const {
    drawMarkedText(context);
    drawInvisibles(context);
    drawText(context);
}

void LineFragmentRenderer::drawMarkedText(DrawContext& context) const {
    if (!m_markedRange) return;
    const DrawStateScope scope(context);
    context.setFillColor(m_markedTextBackgroundColor);
    for (const TextLine::Span& span : m_lineFragment->line->spansOf(*m_markedRange)) {
        const Rect frame{
            .x = span.minX, .width = span.maxX - span.minX, .height = m_lineFragment->scaledSize.height};
        if (m_markedTextBackgroundCornerRadius > 0)
            context.fillRoundedRect(frame, m_markedTextBackgroundCornerRadius);
        else
            context.fillRect(frame);
    }
}

void LineFragmentRenderer::drawInvisibles(DrawContext& context) const {
    if (!m_invisibleCharacterConfiguration || !m_invisibleCharacterConfiguration->showsAny()) return;
    const auto string = text();
    if (!string) return;
    std::int64_t index = m_lineFragment->range.location;
    for (const std::u16string_view character : charactersOf(*string)) {
        const TextRange range{.location = index, .length = static_cast<std::int64_t>(character.size())};
        if (const auto mark = m_invisibleCharacterConfiguration->markOf(character))
            drawSymbol(*mark, range, context);
        index = range.limit();
    }
}

// On the character, to whichever side it runs.
void LineFragmentRenderer::drawSymbol(const InvisibleCharacterConfiguration::Mark& mark,
                                      const TextRange& character, DrawContext& context) const {
    const double x =
        mark.isAtEnd ? m_lineFragment->baseSize.width : m_lineFragment->line->spansOf(character).front().minX;
    context.drawText(mark.symbol, m_invisibleCharacterConfiguration->font(),
                     m_invisibleCharacterConfiguration->textColor(),
                     {.x = x,
                      .y = (m_lineFragment->scaledSize.height - mark.size.height) * 0.5,
                      .width = mark.size.width,
                      .height = mark.size.height});
}

// What the row is higher than its text is above and below in equal parts.
void LineFragmentRenderer::drawText(DrawContext& context) const {
    const DrawStateScope scope(context);
    const double height = m_lineFragment->scaledSize.height;
    const double below = m_lineFragment->descent + (height - m_lineFragment->baseSize.height) * 0.5;
    context.drawLine(*m_lineFragment->line, {.x = 0, .y = height - below});
}

std::optional<std::u16string> LineFragmentRenderer::text() const {
    const auto delegate = m_delegate.lock();
    return delegate ? delegate->string(*this) : std::nullopt;
}

} // namespace tessarine
