#include "Quillet/screens/code/CodeFont.h"

#include <QtGui/QFontDatabase>

namespace quillet {

namespace {

constexpr qreal pointSize = 14.0 * 72 / 96; // of the 96 points of the screen that an inch has

} // namespace

QFont codeFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(pointSize);
    return font;
}

} // namespace quillet
