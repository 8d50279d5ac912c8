#include "Quillet/screens/settings/ColorfulIconLabelStyle.h"

#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QStyle>

namespace quillet {

using platform::TextStyle;

namespace {

// Points, before they grow.
constexpr double side = 28.0;
constexpr double cornerRadius = 6.0;
constexpr double symbolSide = 18.0;
constexpr double gap = 12.0;

// By how much the platform makes its fonts larger.
double growth() {
    constexpr int measured = 1000;
    return platform::systemFont(measured).pixelSize() / static_cast<double>(measured);
}

} // namespace

ColorfulIconLabelStyle::ColorfulIconLabelStyle(platform::Asset color)
    : m_color(color)
    , m_accessibilityScale(growth()) {}

QSize ColorfulIconLabelStyle::size(const QString& title) const {
    const QFontMetrics metrics(platform::font(TextStyle::Body));
    return {qRound((side + gap) * m_accessibilityScale) + metrics.horizontalAdvance(title),
            qRound(side * m_accessibilityScale)};
}

void ColorfulIconLabelStyle::drawIcon(QPainter& painter, const QRect& square, const Label& label) const {
    if (!label.image.isEmpty())
        return QSvgRenderer(QStringLiteral(":/images/%1.svg").arg(label.image)).render(&painter, square);
    painter.setPen(Qt::NoPen);
    painter.setBrush(platform::color(m_color, platform::Appearance::Light));
    const double radius = cornerRadius * m_accessibilityScale;
    painter.drawRoundedRect(square, radius, radius);
    const double size = symbolSide * m_accessibilityScale;
    QRectF place(0, 0, size, size);
    place.moveCenter(QRectF(square).center());
    platform::drawSymbol(painter, place, label.symbol, Qt::white);
}

void ColorfulIconLabelStyle::draw(QPainter& painter, const QRect& rect, const Label& label) const {
    const auto direction = painter.layoutDirection();
    const int extent = qRound(side * m_accessibilityScale);
    const QRect square(rect.left(), rect.center().y() - extent / 2, extent, extent);
    drawIcon(painter, QStyle::visualRect(direction, rect, square), label);
    const QRect line = rect.adjusted(extent + qRound(gap * m_accessibilityScale), 0, 0, 0);
    painter.setFont(platform::font(TextStyle::Body));
    painter.setPen(platform::color(platform::Asset::Text));
    painter.drawText(QStyle::visualRect(direction, rect, line),
                     static_cast<int>(QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignVCenter) |
                         Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(label.title, Qt::ElideRight, line.width()));
}

} // namespace quillet
