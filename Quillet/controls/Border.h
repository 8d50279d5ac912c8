#pragma once

#include <QtGui/QFont>

class QColor;
class QPainter;
class QRectF;

namespace quillet {

// What bordered buttons and labels have in common.

constexpr double borderRadius = 12; // points

// A border of `width` points that lies inside of `rect`.
void drawBorder(QPainter& painter, const QRectF& rect, double width, const QColor& color);

QFont borderedFont();

} // namespace quillet
