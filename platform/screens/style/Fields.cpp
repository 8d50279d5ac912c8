#include "platform/screens/style/Fields.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace platform::style {

namespace {

constexpr int sidePadding = 10;
constexpr int topPadding = 8;
constexpr int ringWidth = 2;
constexpr int chevronSize = 14;
constexpr int chevronColumn = chevronSize + 2 * sidePadding;

} // namespace

void drawField(const QStyleOption& option, QPainter& painter) {
    const bool isFocused = option.state.testFlag(QStyle::State_HasFocus);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const qreal width = isFocused ? ringWidth : 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(isFocused ? Asset::Accent : Asset::Separator), width));
    painter.setBrush(color(isEnabled ? Asset::Card : Asset::BackgroundGrey));
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), cornerRadius - inset,
                            cornerRadius - inset);
    painter.restore();
}

QRect fieldContents(const QRect& rect) {
    return rect.adjusted(sidePadding, topPadding, -sidePadding, -topPadding);
}

QSize fieldSize(const QStyleOption& option, QSize contents) {
    return {contents.width() + 2 * sidePadding, heightOf(option.fontMetrics)};
}

void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter) {
    drawField(option, painter);
    QRectF chevron(0, 0, chevronSize, chevronSize);
    chevron.moveCenter(QRectF(comboBoxPart(option, QStyle::SC_ComboBoxArrow)).center());
    drawSymbol(painter, chevron, QStringLiteral("chevron.down"), color(Asset::TextSecondary));
}

QRect comboBoxPart(const QStyleOptionComplex& option, QStyle::SubControl part) {
    QRect rect = option.rect;
    if (part == QStyle::SC_ComboBoxArrow)
        rect.setLeft(rect.right() + 1 - chevronColumn);
    else if (part == QStyle::SC_ComboBoxEditField)
        rect.adjust(sidePadding, 2, -chevronColumn, -2);
    return QStyle::visualRect(option.direction, option.rect, rect);
}

QSize comboBoxSize(const QStyleOption& option, QSize contents) {
    return {contents.width() + sidePadding + chevronColumn, heightOf(option.fontMetrics)};
}

} // namespace platform::style
