#include "Tessarine/base/TextAttributes.h"

namespace tessarine {

void TextAttributes::add(const TextAttributes& others) {
    if (others.foregroundColor) foregroundColor = others.foregroundColor;
    if (others.font) font = others.font;
    if (others.kern) kern = others.kern;
    if (others.shadow) shadow = others.shadow;
    if (others.defaultTabInterval) defaultTabInterval = others.defaultTabInterval;
    isBold = isBold || others.isBold;
    isItalic = isItalic || others.isItalic;
}

} // namespace tessarine
