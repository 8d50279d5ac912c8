#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/layout/View.h"

#include <string>

namespace tessarine {

// A short text in one line.
class Label final : public View {
public:
    const std::u16string& text() const { return m_text; }

    void setText(std::u16string text);

    const Font& font() const { return m_font; }

    void setFont(Font font);

    const Color& textColor() const { return m_textColor; }

    void setTextColor(const Color& color);

    void draw(DrawContext& context) override;

private:
    std::u16string m_text;
    Font m_font = Font::system(14);
    Color m_textColor{RGBAColor{}};
};

} // namespace tessarine
