#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Font.h"
#include "Tessarine/base/Rect.h"
#include "Tessarine/layout/TextLine.h"

#include <string_view>

namespace tessarine {

// What a view is drawn into. In points; the origin is the view's top left corner, y grows downwards.
class DrawContext {
public:
    DrawContext() = default;
    DrawContext(const DrawContext&) = delete;
    DrawContext& operator=(const DrawContext&) = delete;
    virtual ~DrawContext() = default;

    // The fill colour, and whatever else is set for what follows. Pairs nest.
    virtual void saveState() = 0;
    virtual void restoreState() = 0;

    virtual void setFillColor(const Color& color) = 0;
    virtual void fillRect(const Rect& rect) = 0;
    virtual void fillRoundedRect(const Rect& rect, double cornerRadius) = 0;

    // With the left end of its baseline there. A line that the shaper of the same host has made.
    virtual void drawLine(const TextLine& line, const Point& baseline) = 0;

    // In one line, from the rectangle's top left corner.
    virtual void drawText(std::u16string_view text, const Font& font, const Color& color,
                          const Rect& rect) = 0;
};

} // namespace tessarine
