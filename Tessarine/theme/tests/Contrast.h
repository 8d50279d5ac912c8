#pragma once

#include "Tessarine/base/Color.h"

#include <algorithm>
#include <cmath>

namespace tessarine {

// An opaque background with a colour over it, part by part in sRGB, as painters do.
inline RGBAColor painted(RGBAColor color, RGBAColor background) {
    const auto mixed = [&](std::uint8_t above, std::uint8_t below) {
        return static_cast<std::uint8_t>(std::lround(static_cast<float>(above) * color.alpha +
                                                     static_cast<float>(below) * (1 - color.alpha)));
    };
    return {.red = mixed(color.red, background.red),
            .green = mixed(color.green, background.green),
            .blue = mixed(color.blue, background.blue),
            .alpha = 1};
}

inline double luminance(RGBAColor color) {
    const auto linear = [](std::uint8_t part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

// From 1, for equal colours, to 21. The background is opaque.
inline double contrast(RGBAColor color, RGBAColor background) {
    const double a = luminance(painted(color, background));
    const double b = luminance(background);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

inline constexpr double leastTextContrast = 4.5;
inline constexpr double leastOtherContrast = 3;

} // namespace tessarine
