#pragma once

#include <cmath>

namespace tessarine {

// The heights of a font in points, counted up from the baseline: so what hangs below it is negative.
struct FontMetrics {
    double ascender = 0;
    double descender = 0;
    double leading = 0;

    // From one baseline to the next.
    double lineHeight() const { return ascender + std::abs(descender) + leading; }

    friend bool operator==(const FontMetrics&, const FontMetrics&) = default;
};

} // namespace tessarine
