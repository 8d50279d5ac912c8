#include "Quillet/controls/Border.h"

#include "platform/screens/appearance/ContinuousCorners.h"

#include <QtGui/QPainter>

namespace quillet {

void drawBorder(QPainter& painter, const QRectF& rect, double width, const QColor& color) {
    const double half = width / 2;
    painter.strokePath(
        platform::continuousRoundedPath(rect.adjusted(half, half, -half, -half), borderRadius - half),
        QPen(color, width));
}

} // namespace quillet
