#pragma once

namespace tessarine {

// What a row takes, in points; nothing is negative. The descent hangs below the baseline.
struct TypographicBounds {
    double width = 0;
    double ascent = 0;
    double descent = 0;
    double leading = 0;

    double height() const { return ascent + descent + leading; }

    friend bool operator==(const TypographicBounds&, const TypographicBounds&) = default;
};

} // namespace tessarine
