#include "platform/screens/style/Menus.h"

#include "platform/screens/appearance/InputKind.h"
#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

namespace platform::style {

namespace {

constexpr int sidePadding = 12;
constexpr int markColumn = 24; // a tick or a submenu's chevron
constexpr int markSize = 14;
constexpr int symbolSize = 20;
constexpr int symbolGap = 12;
constexpr int shortcutGap = 24;
constexpr int lineHeight = 11;

bool hasSymbols(const QStyleOptionMenuItem& option) {
    return option.maxIconWidth > 0;
}

int leadingWidth(const QStyleOptionMenuItem& option) {
    return sidePadding + (option.menuHasCheckableItems ? markColumn : 0) +
           (hasSymbols(option) ? symbolSize + symbolGap : 0);
}

QRect mirrored(const QStyleOptionMenuItem& option, const QRect& rect) {
    return QStyle::visualRect(option.direction, option.rect, rect);
}

// In the middle of a column of the row that begins at `left`, on the row's line.
QRectF square(const QStyleOptionMenuItem& option, int left, int columnWidth, int size) {
    QRectF rect(0, 0, size, size);
    rect.moveCenter(
        QRectF(mirrored(option, QRect(left, option.rect.top(), columnWidth, option.rect.height()))).center());
    return rect;
}

void drawSeparator(const QStyleOptionMenuItem& option, QPainter& painter) {
    const QRect inner = option.rect.adjusted(sidePadding, 0, -sidePadding, 0);
    if (option.text.isEmpty()) {
        painter.fillRect(QRect(inner.left(), inner.center().y(), inner.width(), 1), color(Asset::Separator));
        return;
    }
    painter.fillRect(QRect(inner.left(), inner.top() + lineHeight / 2, inner.width(), 1),
                     color(Asset::Separator));
    painter.setFont(font(TextStyle::Footnote));
    painter.setPen(color(Asset::TextSecondary));
    painter.drawText(inner.adjusted(0, lineHeight, 0, 0),
                     QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter |
                         Qt::TextHideMnemonic,
                     option.text);
}

void drawChosen(const QStyleOptionMenuItem& option, QPainter& painter) {
    if (!option.state.testFlag(QStyle::State_Selected) || !option.state.testFlag(QStyle::State_Enabled))
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(Asset::Selection));
    painter.drawRoundedRect(option.rect, cornerRadius - menuMargin / 2, cornerRadius - menuMargin / 2);
}

void drawMarks(const QStyleOptionMenuItem& option, QPainter& painter, const QColor& tint) {
    if (option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked)
        drawSymbol(painter, square(option, option.rect.left() + sidePadding, markSize, markSize),
                   QStringLiteral("checkmark"), tint);
    if (option.menuItemType != QStyleOptionMenuItem::SubMenu) return;
    const bool isLeftToRight = option.direction == Qt::LeftToRight;
    drawSymbol(painter, square(option, option.rect.right() + 1 - sidePadding - markSize, markSize, markSize),
               isLeftToRight ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left"),
               color(Asset::TextSecondary));
}

void drawTexts(const QStyleOptionMenuItem& option, QPainter& painter, const QColor& tint) {
    const QStringList parts = option.text.split(u'\t'); // the title, and its shortcut
    const QRect line = option.rect.adjusted(leadingWidth(option), 0, -sidePadding, 0);
    painter.setFont(option.font);
    painter.setPen(tint);
    const auto leading = QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter;
    painter.drawText(mirrored(option, line), leading | Qt::TextShowMnemonic | Qt::TextSingleLine,
                     parts.constFirst());
    if (parts.size() < 2) return;
    const auto trailing = QStyle::visualAlignment(option.direction, Qt::AlignRight) | Qt::AlignVCenter;
    painter.setPen(color(Asset::TextSecondary));
    painter.drawText(mirrored(option, line), trailing | Qt::TextSingleLine, parts.last());
}

} // namespace

void drawFloatingPanel(const QRect& rect, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color(Asset::Separator), 1));
    painter.setBrush(color(Asset::Card));
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.restore();
}

void drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(option, painter);
    } else {
        const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
        const QColor tint = isEnabled ? option.palette.color(QPalette::Active, QPalette::ButtonText)
                                      : color(Asset::TextSecondary);
        drawChosen(option, painter);
        drawMarks(option, painter, tint);
        const int symbolLeft = option.rect.left() + leadingWidth(option) - symbolSize - symbolGap;
        if (!option.icon.isNull())
            option.icon.paint(&painter, square(option, symbolLeft, symbolSize, symbolSize).toRect(),
                              Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
        drawTexts(option, painter, tint);
    }
    painter.restore();
}

QSize menuItemSize(const QStyleOptionMenuItem& option, QSize contents) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        if (option.text.isEmpty()) return {contents.width(), lineHeight};
        const QFontMetrics small(font(TextStyle::Footnote));
        return {small.horizontalAdvance(option.text) + 2 * sidePadding, lineHeight + small.height() + 4};
    }
    const int shortcut = option.reservedShortcutWidth > 0 ? shortcutGap : 0;
    const int mark = option.menuItemType == QStyleOptionMenuItem::SubMenu ? markColumn : 0;
    const int least = currentInput() == InputKind::Touch ? leastTargetHeight : leastMenuRow;
    return {leadingWidth(option) + contents.width() + shortcut + mark + sidePadding,
            heightOf(option.fontMetrics, least)};
}

} // namespace platform::style
