#pragma once

#include <QtGui/QFontMetrics>

#include <algorithm>

namespace platform {

// Points.
constexpr int cornerRadius = 10; // of buttons, fields, cards and menus
constexpr int leastTargetHeight = 44;
constexpr int leastMenuRow = 36; // by mouse and keyboard; a finger needs leastTargetHeight

// Grows with the text.
inline int heightOf(const QFontMetrics& metrics, int least = leastTargetHeight) {
    return std::max(least, metrics.height() + 16);
}

} // namespace platform
