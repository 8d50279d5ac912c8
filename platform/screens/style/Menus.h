#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;

namespace platform::style {

constexpr int menuMargin = 6; // around the rows, points

// The body of a menu, of a tool tip and of whatever else floats over the window.
void drawFloatingPanel(const QRect& rect, QPainter& painter);

void drawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter);
QSize menuItemSize(const QStyleOptionMenuItem& option, QSize contents);

} // namespace platform::style
