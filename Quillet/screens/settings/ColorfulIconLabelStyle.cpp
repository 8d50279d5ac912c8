#include "Quillet/screens/settings/ColorfulIconLabelStyle.h"

#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace quillet {

namespace {

// Points, before the scale.
constexpr double squareSide = 28;
constexpr double cornerRadius = 6;
constexpr double symbolSide = 17;
constexpr double gap = 12;

} // namespace

double ColorfulIconLabelStyle::currentScale() {
    constexpr double size = 100;
    return platform::systemFont(size).pixelSize() / size;
}

int ColorfulIconLabelStyle::side() const {
    return static_cast<int>(squareSide * accessibilityScale);
}

void ColorfulIconLabelStyle::draw(QPainter& painter, const QRect& rect, const QString& symbol,
                                  const QString& title, Qt::LayoutDirection direction) const {
    const QRect square(rect.left(), rect.center().y() - side() / 2, side(), side());
    const QRectF ground = QStyle::visualRect(direction, rect, square);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(platform::color(color, platform::Appearance::Light)); // white is seen on that one
    const double radius = cornerRadius * accessibilityScale;
    painter.drawRoundedRect(ground, radius, radius);
    QRectF place(0, 0, symbolSide * accessibilityScale, symbolSide * accessibilityScale);
    place.moveCenter(ground.center());
    platform::drawSymbol(painter, place, symbol, Qt::white);
    painter.setPen(platform::color(platform::Asset::Text));
    const int shift = side() + static_cast<int>(gap * accessibilityScale);
    painter.drawText(QStyle::visualRect(direction, rect, rect.adjusted(shift, 0, 0, 0)),
                     QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignVCenter, title);
}

} // namespace quillet
