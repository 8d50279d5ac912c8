#pragma once

#include "Tessarine/base/TextMeasurer.h"

namespace tessarine {

// Measures with the toolkit's fonts. It keeps nothing itself, so it may be called on any thread.
class QtTextMeasurer final : public TextMeasurer {
public:
    FontMetrics metrics(const Font& font) const override;
    double width(std::u16string_view text, const Font& font) const override;
};

} // namespace tessarine
