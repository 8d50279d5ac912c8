#pragma once

#include "Tessarine/base/TextMeasurer.h"

namespace tessarine {

// Characters as wide as the font is large.
class FakeTextMeasurer final : public TextMeasurer {
public:
    FontMetrics metrics(const Font& font) const override {
        return {.ascender = font.pointSize, .descender = -0.25 * font.pointSize, .leading = 1};
    }

    double width(std::u16string_view text, const Font& font) const override {
        return font.pointSize * static_cast<double>(text.size());
    }
};

} // namespace tessarine
