#include "platform/screens/text/TextZoom.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr qreal smallest = 0.5;
constexpr qreal largest = 4;
constexpr qreal notch = 1.1; // of a wheel, which is 120 eighths of a degree

} // namespace

void TextZoom::multiply(qreal factor) {
    if (factor > 0) m_factor = std::clamp(m_factor * factor, smallest, largest);
}

void TextZoom::turn(int eighths) {
    multiply(std::pow(notch, eighths / 120.0));
}

QFont TextZoom::applied(QFont font) const {
    if (m_factor == 1) return font;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(std::round(font.pointSizeF() * m_factor * 2) / 2);
    else
        font.setPixelSize(qRound(font.pixelSize() * m_factor));
    return font;
}

} // namespace platform
