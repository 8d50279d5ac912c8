#include "platform/screens/style/Buttons.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/controls/ButtonRole.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

namespace platform::style {

namespace {

constexpr int sidePadding = 16;
constexpr int iconGap = 8;
constexpr QSize switchBody(51, 31);
constexpr int knobInset = 2;
constexpr int switchGap = 12;

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

ButtonRole roleOf(const QWidget* widget) {
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return button ? buttonRole(*button) : ButtonRole::Bordered;
}

struct Colors {
    QColor fill; // transparent if invalid
    QColor edge; // none if invalid
    QColor text;
};

Colors colorsOf(ButtonRole role, const QStyleOption& option) {
    const bool isMarked = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_Sunken);
    const QColor mark = isMarked ? color(Asset::Selection) : QColor();
    if (!has(option, QStyle::State_Enabled)) {
        const bool isFilled = role == ButtonRole::Prominent || role == ButtonRole::Bordered;
        return {isFilled ? color(Asset::Separator) : QColor(), {}, color(Asset::TextSecondary)};
    }
    switch (role) {
    case ButtonRole::Plain:
    case ButtonRole::Segment:
        return {mark, {}, color(Asset::Accent)};
    case ButtonRole::Destructive:
        return {mark, {}, color(Asset::SystemRed)};
    case ButtonRole::Prominent:
        return {color(Asset::Accent), {}, color(Asset::OnAccent)};
    case ButtonRole::Bordered:
        return {isMarked ? mark : color(Asset::Card), color(Asset::Separator), color(Asset::Text)};
    }
    return {};
}

void drawBody(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& edge) {
    painter.setPen(edge.isValid() ? QPen(edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    const qreal inset = edge.isValid() ? 0.5 : 0;
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
}

// A pressed button is seen to give way, whatever its colour.
void dimWhilePressed(QPainter& painter, const QStyleOption& option) {
    if (!has(option, QStyle::State_Sunken)) return;
    QColor shade = color(Asset::Text);
    shade.setAlphaF(0.12F);
    drawBody(painter, option.rect, shade, {});
}

// Its share of the outline that the group has in common, and a pill if it is the one that is chosen.
void drawSegment(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const auto* group = button ? button->group() : nullptr;
    const QList<QAbstractButton*> buttons = group ? group->buttons() : QList<QAbstractButton*>();
    const bool isFirst = buttons.isEmpty() || buttons.constFirst() == widget;
    const bool isLast = buttons.isEmpty() || buttons.constLast() == widget;
    const bool isLeftToRight = option.direction == Qt::LeftToRight;
    QRect outline = option.rect; // reaches out of sight where the neighbour goes on
    if (!(isLeftToRight ? isFirst : isLast)) outline.setLeft(outline.left() - 2 * cornerRadius);
    if (!(isLeftToRight ? isLast : isFirst)) outline.setRight(outline.right() + 2 * cornerRadius);
    painter.setClipRect(option.rect);
    drawBody(painter, outline, color(Asset::Card), color(Asset::Separator));
    const QRectF pill = QRectF(option.rect).adjusted(3, 3, -3, -3);
    painter.setPen(Qt::NoPen);
    if (has(option, QStyle::State_On))
        painter.setBrush(color(Asset::Accent));
    else if (has(option, QStyle::State_MouseOver))
        painter.setBrush(color(Asset::Selection));
    else
        return;
    painter.drawRoundedRect(pill, cornerRadius - 3, cornerRadius - 3);
}

QColor textColor(const QStyleOptionButton& option, const QWidget* widget) {
    const ButtonRole role = roleOf(widget);
    if (role != ButtonRole::Segment || !has(option, QStyle::State_Enabled))
        return colorsOf(role, option).text;
    return color(has(option, QStyle::State_On) ? Asset::OnAccent : Asset::Text);
}

void drawSwitch(const QStyleOption& option, QPainter& painter, const QRectF& track) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isOn = has(option, QStyle::State_On);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(!isEnabled ? Asset::Separator : isOn ? Asset::Accent : Asset::SystemGray));
    painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
    const qreal side = track.height() - 2 * knobInset;
    const bool isAtRight = isOn == (option.direction == Qt::LeftToRight);
    QRectF knob(track.left() + knobInset, track.top() + knobInset, side, side);
    if (has(option, QStyle::State_NoChange))
        knob.moveCenter(track.center());
    else if (isAtRight)
        knob.moveRight(track.right() - knobInset);
    painter.setBrush(isOn && isEnabled ? color(Asset::OnAccent) : color(Asset::Card));
    painter.drawEllipse(knob);
    painter.restore();
}

} // namespace

void drawPushButton(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const ButtonRole role = roleOf(widget);
    if (role == ButtonRole::Segment) {
        drawSegment(option, painter, widget);
    } else {
        const Colors colors = colorsOf(role, option);
        drawBody(painter, option.rect, colors.fill, colors.edge);
        dimWhilePressed(painter, option);
    }
    painter.restore();
}

void drawPushButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget) {
    painter.save();
    painter.setPen(textColor(option, widget));
    const bool isEmphasised = roleOf(widget) == ButtonRole::Prominent;
    QFont font = painter.font();
    font.setBold(font.bold() || isEmphasised);
    painter.setFont(font);
    QRect text = option.rect;
    if (!option.icon.isNull()) {
        const int textWidth = painter.fontMetrics().size(Qt::TextShowMnemonic, option.text).width();
        const int gap = option.text.isEmpty() ? 0 : iconGap;
        const int width = option.iconSize.width() + gap + textWidth;
        QRect icon(QPoint(text.left() + (text.width() - width) / 2,
                          text.top() + (text.height() - option.iconSize.height()) / 2),
                   option.iconSize);
        text.setLeft(icon.right() + 1 + gap);
        text.setWidth(textWidth);
        icon = QStyle::visualRect(option.direction, option.rect, icon);
        text = QStyle::visualRect(option.direction, option.rect, text);
        const auto mode = has(option, QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled;
        option.icon.paint(&painter, icon, Qt::AlignCenter, mode);
    }
    painter.drawText(text, Qt::AlignCenter | Qt::TextShowMnemonic, option.text);
    painter.restore();
}

// All have room for bold text, so that none grows when it becomes prominent.
QSize pushButtonSize(const QStyleOptionButton& option, QSize contents, const QWidget* widget) {
    QFont bold = widget ? widget->font() : QFont();
    bold.setBold(true);
    const int surplus =
        QFontMetrics(bold).horizontalAdvance(option.text) - option.fontMetrics.horizontalAdvance(option.text);
    return {std::max(leastTargetHeight, contents.width() + surplus + 2 * sidePadding),
            heightOf(option.fontMetrics)};
}

void drawCheckBox(const QStyleOptionButton& option, QPainter& painter) {
    drawSwitch(option, painter, switchRect(option));
    painter.save();
    painter.setPen(color(has(option, QStyle::State_Enabled) ? Asset::Text : Asset::TextSecondary));
    painter.drawText(switchTextRect(option),
                     QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter |
                         Qt::TextShowMnemonic | Qt::TextWordWrap,
                     option.text);
    painter.restore();
}

QRect switchRect(const QStyleOption& option) {
    QRect body(QPoint(), switchBody);
    body.moveCenter(option.rect.center());
    body.moveRight(option.rect.right() - 3); // room for the focus ring
    return QStyle::visualRect(option.direction, option.rect, body);
}

QRect switchTextRect(const QStyleOption& option) {
    const QRect text = option.rect.adjusted(0, 0, -(switchBody.width() + 3 + switchGap), 0);
    return QStyle::visualRect(option.direction, option.rect, text);
}

QSize switchSize(const QStyleOptionButton& option) {
    const int text = option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    return {text + switchGap + switchBody.width() + 3, heightOf(option.fontMetrics)};
}

void drawToolButton(const QStyleOption& option, QPainter& painter) {
    if (!has(option, QStyle::State_Enabled)) return;
    const bool isPressed = has(option, QStyle::State_Sunken) || has(option, QStyle::State_On);
    if (!isPressed && !has(option, QStyle::State_MouseOver)) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawBody(painter, option.rect, color(Asset::Selection), {});
    painter.restore();
}

} // namespace platform::style
