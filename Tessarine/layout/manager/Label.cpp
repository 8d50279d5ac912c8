#include "Tessarine/layout/manager/Label.h"

#include "Tessarine/layout/DrawContext.h"

#include <utility>

namespace tessarine {

void Label::setText(std::u16string text) {
    if (text == m_text) return;
    m_text = std::move(text);
    setNeedsDisplay();
}

void Label::setFont(Font font) {
    if (font == m_font) return;
    m_font = std::move(font);
    setNeedsDisplay();
}

void Label::setTextColor(const Color& color) {
    if (color == m_textColor) return;
    m_textColor = color;
    setNeedsDisplay();
}

void Label::draw(DrawContext& context) {
    context.drawText(m_text, m_font, m_textColor, bounds());
}

} // namespace tessarine
