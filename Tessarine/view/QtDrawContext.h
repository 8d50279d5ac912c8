#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/layout/DrawContext.h"

#include <QtGui/QColor>

#include <vector>

class QPainter;

namespace tessarine {

// Draws with the toolkit's painter, whose origin is that of the view. Rows have to be of a QtTextShaper. A
// rectangle may be given by any two opposite corners, as text that runs from right to left brings forth.
class QtDrawContext final : public DrawContext {
public:
    // The painter outlives the context.
    QtDrawContext(QPainter& painter, UserInterfaceStyle style)
        : m_painter(painter)
        , m_style(style) {}

    void saveState() override;
    void restoreState() override;
    void setFillColor(const Color& color) override;
    void fillRect(const Rect& rect) override;
    void fillRoundedRect(const Rect& rect, double cornerRadius) override;
    void drawLine(const TextLine& line, const Point& baseline) override;
    void drawText(std::u16string_view text, const Font& font, const Color& color, const Rect& rect) override;

    // Whether there was anything to draw.
    bool hasDrawn() const { return m_hasDrawn; }

private:
    QPainter& painter();

    QPainter& m_painter;
    const UserInterfaceStyle m_style;
    QColor m_fillColor = Qt::black;
    std::vector<QColor> m_savedFillColors;
    bool m_hasDrawn = false;
};

} // namespace tessarine
