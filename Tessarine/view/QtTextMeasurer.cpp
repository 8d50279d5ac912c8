#include "Tessarine/view/QtTextMeasurer.h"

#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtFonts.h"

#include <QtGui/QFontMetricsF>

#include <algorithm>

namespace tessarine {

FontMetrics QtTextMeasurer::metrics(const Font& font) const {
    const QFontMetricsF measured(qtFont(font));
    return {.ascender = measured.ascent(),
            .descender = -measured.descent(),
            .leading = std::max(measured.leading(), 0.0)};
}

double QtTextMeasurer::width(std::u16string_view text, const Font& font) const {
    return QFontMetricsF(qtFont(font)).horizontalAdvance(toQt(text));
}

} // namespace tessarine
