#pragma once

#include "Tessarine/base/TextMeasurer.h"

namespace tessarine {

// Each unit is half as wide as its font is large, each line as high as the font.
class FixedMeasurer final : public TextMeasurer {
public:
    FontMetrics metrics(const Font& font) const override {
        return {.ascender = font.pointSize * 0.75, .descender = font.pointSize * -0.25, .leading = 0};
    }

    double width(std::u16string_view text, const Font& font) const override {
        ++measured;
        return static_cast<double>(text.size()) * font.pointSize * 0.5;
    }

    mutable int measured = 0;
};

} // namespace tessarine
