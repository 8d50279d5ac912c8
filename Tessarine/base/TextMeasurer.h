#pragma once

#include "Tessarine/base/Font.h"
#include "Tessarine/base/FontMetrics.h"

#include <string_view>

namespace tessarine {

// The host's fonts, as far as the engine has to know their measures. In points.
//
// Thread: any number at once, so implementations guard what they keep.
class TextMeasurer {
public:
    TextMeasurer() = default;
    TextMeasurer(const TextMeasurer&) = delete;
    TextMeasurer& operator=(const TextMeasurer&) = delete;
    virtual ~TextMeasurer() = default;

    virtual FontMetrics metrics(const Font& font) const = 0;

    // Of a text set in one line; 0 for an empty one. UTF-16, lone surrogates included.
    virtual double width(std::u16string_view text, const Font& font) const = 0;
};

} // namespace tessarine
