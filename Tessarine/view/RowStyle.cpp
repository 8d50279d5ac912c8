#include "Tessarine/view/RowStyle.h"

#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtFonts.h"

namespace tessarine {

namespace {

constexpr double defaultSize = 14;
constexpr Color defaultColor(RGBAColor::ofHex(0x000000), RGBAColor::ofHex(0xFFFFFF));

QFont faceOf(const TextAttributes& attributes) {
    QFont face = qtFont(attributes.font.value_or(Font::system(defaultSize)));
    if (attributes.kern) face.setLetterSpacing(QFont::AbsoluteSpacing, *attributes.kern);
    return face;
}

QTextCharFormat formatOf(const RowStyle& row, UserInterfaceStyle style) {
    QTextCharFormat format;
    format.setFont(row.face);
    format.setForeground(toQt(row.color.resolved(style)));
    return format;
}

} // namespace

RowStyle::RowStyle(const TextAttributes& attributes)
    : foregroundColor(attributes.foregroundColor)
    , font(attributes.font)
    , kern(attributes.kern)
    , shadow(attributes.shadow)
    , face(faceOf(attributes))
    , color(attributes.foregroundColor.value_or(defaultColor))
    , metrics(FaceMetrics::of(face))
    , m_lightFormat(formatOf(*this, UserInterfaceStyle::Light))
    , m_darkFormat(formatOf(*this, UserInterfaceStyle::Dark)) {}

bool RowStyle::isOf(const TextAttributes& attributes) const {
    return foregroundColor == attributes.foregroundColor && font == attributes.font &&
           kern == attributes.kern && shadow == attributes.shadow;
}

} // namespace tessarine
