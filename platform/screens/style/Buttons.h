#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QWidget;

namespace platform::style {

void drawPushButton(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget);
void drawPushButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget);
QSize pushButtonSize(const QStyleOptionButton& option, QSize contents, const QWidget* widget);

// A check box is a switch: its text leads, the switch stands at the end.
void drawCheckBox(const QStyleOptionButton& option, QPainter& painter);
QRect switchRect(const QStyleOption& option);
QRect switchTextRect(const QStyleOption& option);
QSize switchSize(const QStyleOptionButton& option);

// What a tool button shows of itself while the pointer is over it, or while it is pressed.
void drawToolButton(const QStyleOption& option, QPainter& painter);

} // namespace platform::style
