#pragma once

class QColor;
class QPainter;
class QRectF;

namespace quillet {

// What bordered buttons and labels have in common.

// Points.
constexpr double borderRadius = 12;
constexpr double borderedFontSize = 16; // of the system's font

// A border of `width` points that lies inside of `rect`.
void drawBorder(QPainter& painter, const QRectF& rect, double width, const QColor& color);

} // namespace quillet
