#include "Tessarine/view/QtDrawContext.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtFonts.h"
#include "Tessarine/view/QtTextLine.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

namespace tessarine {

void QtDrawContext::saveState() {
    m_painter.save();
    m_savedFillColors.push_back(m_fillColor);
}

void QtDrawContext::restoreState() {
    if (m_savedFillColors.empty()) fatalError("A state is restored that was not saved.");
    m_fillColor = m_savedFillColors.back();
    m_savedFillColors.pop_back();
    m_painter.restore();
}

void QtDrawContext::setFillColor(const Color& color) {
    m_fillColor = toQt(color.resolved(m_style));
}

void QtDrawContext::fillRect(const Rect& rect) {
    painter().fillRect(toQt(rect).normalized(), m_fillColor);
}

void QtDrawContext::fillRoundedRect(const Rect& rect, double cornerRadius) {
    QPainter& filling = painter();
    filling.setRenderHint(QPainter::Antialiasing);
    filling.setPen(Qt::NoPen);
    filling.setBrush(m_fillColor);
    filling.drawRoundedRect(toQt(rect).normalized(), cornerRadius, cornerRadius);
}

void QtDrawContext::drawLine(const TextLine& line, const Point& baseline) {
    const auto* const row = dynamic_cast<const QtTextLine*>(&line);
    if (!row) fatalError("A row is drawn that another host has made.");
    row->draw(painter(), toQt(baseline), m_style);
}

void QtDrawContext::drawText(std::u16string_view text, const Font& font, const Color& color,
                             const Rect& rect) {
    const QFont face = qtFont(font);
    QPainter& writing = painter();
    writing.setFont(face);
    writing.setPen(toQt(color.resolved(m_style)));
    writing.drawText(QPointF(rect.x, rect.y + QFontMetricsF(face).ascent()), toQt(text));
}

QPainter& QtDrawContext::painter() {
    m_hasDrawn = true;
    return m_painter;
}

} // namespace tessarine
