#include "platform/screens/appearance/SystemFont.h"

#include <QtGui/QFontInfo>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace platform {

namespace {

constexpr double usualSize = 40 / 3.0; // points of the design: ten typographic ones

} // namespace

QFont systemFont(double size) {
    QFont font = QApplication::font();
    const double growth = std::max(1.0, QFontInfo(font).pixelSize() / usualSize);
    font.setPixelSize(qRound(size * growth));
    return font;
}

} // namespace platform
