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
    m_painter.fillRect(toQt(rect), m_fillColor);
}

void QtDrawContext::fillRoundedRect(const Rect& rect, double cornerRadius) {
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_fillColor);
    m_painter.drawRoundedRect(toQt(rect), cornerRadius, cornerRadius);
}

void QtDrawContext::drawLine(const TextLine& line, const Point& baseline) {
    const auto* const row = dynamic_cast<const QtTextLine*>(&line);
    if (!row) fatalError("A row is drawn that another host has made.");
    row->draw(m_painter, toQt(baseline), m_style);
}

void QtDrawContext::drawText(std::u16string_view text, const Font& font, const Color& color,
                             const Rect& rect) {
    const QFont face = qtFont(font);
    m_painter.setFont(face);
    m_painter.setPen(toQt(color.resolved(m_style)));
    m_painter.drawText(QPointF(rect.x, rect.y + QFontMetricsF(face).ascent()), toQt(text));
}

} // namespace tessarine
