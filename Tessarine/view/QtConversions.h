#pragma once

// The engine's plain values as the toolkit has them. A point is a device-independent pixel.

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Rect.h"

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace tessarine {

inline QRectF toQt(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

inline QPointF toQt(const Point& point) {
    return {point.x, point.y};
}

inline QColor toQt(const RGBAColor& color) {
    return QColor::fromRgbF(static_cast<float>(color.red) / 255, static_cast<float>(color.green) / 255,
                            static_cast<float>(color.blue) / 255, color.alpha);
}

// A copy.
inline QString toQt(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

// The toolkit counts in int. A location beyond that becomes the last of these.
inline int toQt(std::int64_t location) {
    return static_cast<int>(std::min<std::int64_t>(location, std::numeric_limits<int>::max()));
}

inline Point fromQt(const QPointF& point) {
    return {.x = point.x(), .y = point.y()};
}

inline Size fromQt(const QSizeF& size) {
    return {.width = size.width(), .height = size.height()};
}

// Of the string's own units.
inline std::u16string_view fromQt(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())};
}

} // namespace tessarine
