#pragma once

#include <QtCore/QRectF>

#include <algorithm>
#include <cmath>

namespace tessarine {

// The nearest place that is a whole number of device pixels from the origin; the scale is that of pixels to
// points.
inline QPointF onDevicePixels(const QPointF& point, double scale) {
    return {std::round(point.x() * scale) / scale, std::round(point.y() * scale) / scale};
}

// The same of all edges. What is not empty stays so.
inline QRectF onDevicePixels(const QRectF& rect, double scale) {
    QRectF placed(onDevicePixels(rect.topLeft(), scale), onDevicePixels(rect.bottomRight(), scale));
    if (rect.width() > 0) placed.setWidth(std::max(placed.width(), 1 / scale));
    if (rect.height() > 0) placed.setHeight(std::max(placed.height(), 1 / scale));
    return placed;
}

} // namespace tessarine
