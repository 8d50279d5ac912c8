#include "platform/screens/list/RowPainter.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>

namespace platform {

using RowStyle = ListView::RowStyle;

namespace {

// Points.
constexpr int groundInset = 4;
constexpr qreal groundRadius = cardRadius - groundInset;
constexpr int barWidth = 3;
constexpr int ringReach = focusRingGap + focusRingWidth;
constexpr int buttonDiameter = 32;

QColor faint(Asset asset, int alpha) {
    QColor faint = color(asset);
    faint.setAlpha(alpha);
    return faint;
}

void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect, radius, radius);
}

void paintGround(QPainter& painter, const QRect& card, const RowLook& look) {
    const QRectF ground = card.adjusted(groundInset, groundInset / 2, -groundInset, -groundInset / 2);
    if (look.isSelected) fillRounded(painter, ground, groundRadius, color(Asset::Selection));
    if (look.isPressed)
        fillRounded(painter, ground, groundRadius, faint(Asset::TextSecondary, 56));
    else if (look.isHovered)
        fillRounded(painter, ground, groundRadius, faint(Asset::TextSecondary, 26));
    if (look.isSelected) {
        const bool rightToLeft = look.direction == Qt::RightToLeft;
        const qreal left = rightToLeft ? ground.right() - barWidth - 3 : ground.left() + 3;
        const QRectF bar(left, ground.top() + 8, barWidth, ground.height() - 16);
        fillRounded(painter, bar, barWidth / 2.0, color(Asset::Accent));
    }
    if (look.isFocused) // inside of the ground: there is no room around it
        drawFocusRing(painter, ground.adjusted(ringReach, ringReach, -ringReach, -ringReach),
                      groundRadius - ringReach);
}

void paintButton(QPainter& painter, const QRect& button, const QString& symbol, const RowLook& look) {
    QRectF round(0, 0, buttonDiameter, buttonDiameter);
    round.moveCenter(QRectF(button).center());
    const int alpha = look.isButtonPressed ? 80 : look.isButtonHovered ? 48 : 24;
    fillRounded(painter, round, buttonDiameter / 2.0, faint(Asset::Accent, alpha));
    const qreal inset = (buttonDiameter - 18) / 2.0;
    drawSymbol(painter, round.adjusted(inset, inset, -inset, -inset), symbol, color(Asset::Accent));
    if (look.isButtonFocused) drawFocusRing(painter, round, buttonDiameter / 2.0);
}

// Points at the end of the row while closed, and down once open.
void paintChevron(QPainter& painter, const QRectF& place, const RowLook& look) {
    painter.save();
    painter.translate(place.center());
    if (look.direction == Qt::RightToLeft) painter.scale(-1, 1);
    painter.rotate(90 * look.openness);
    painter.translate(-place.center());
    drawSymbol(painter, place, QStringLiteral("chevron.right"), color(Asset::TextSecondary));
    painter.restore();
}

void paintText(QPainter& painter, const QRect& place, const QString& text, const QFont& font, Asset ink,
               Qt::Alignment alignment) {
    painter.setFont(font);
    painter.setPen(color(ink));
    // Its own direction, so that it is cut off where it ends.
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(place, static_cast<int>(Qt::AlignVCenter | alignment) | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

Asset inkOf(RowStyle style) {
    return style == RowStyle::SectionHeader ? Asset::TextSecondary : Asset::Text;
}

} // namespace

void paintCard(QPainter& painter, const QRect& card, Asset fill) {
    fillRounded(painter, card, std::min<qreal>(cardRadius, card.height() / 2.0), color(fill));
}

void paintRow(QPainter& painter, const RowContent& content, const RowParts& parts, RowStyle style,
              const RowLook& look) {
    if (!parts.separator.isEmpty()) painter.fillRect(parts.separator, color(Asset::Separator));
    if (style != RowStyle::SectionHeader) paintGround(painter, parts.card, look);
    if (!parts.symbol.isEmpty()) drawSymbol(painter, parts.symbol, content.symbol, color(content.tint));
    const auto start = look.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    paintText(painter, parts.title, content.title, titleFont(style, look.isSelected), inkOf(style),
              start | Qt::AlignAbsolute);
    if (!parts.detail.isEmpty())
        paintText(painter, parts.detail, content.detail, titleFont(RowStyle::Row, false),
                  Asset::TextSecondary, Qt::AlignHCenter);
    if (!parts.button.isEmpty()) paintButton(painter, parts.button, content.buttonSymbol, look);
    if (!parts.chevron.isEmpty()) paintChevron(painter, parts.chevron, look);
    if (!parts.checkmark.isEmpty())
        drawSymbol(painter, parts.checkmark, QStringLiteral("checkmark.circle"), color(Asset::Accent));
}

} // namespace platform
