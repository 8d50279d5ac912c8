#pragma once

#include "Tessarine/base/UserInterfaceStyle.h"

#include <cstdint>

namespace tessarine {

// One colour in sRGB, not premultiplied; the alpha from 0 to 1.
struct RGBAColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    float alpha = 1;

    // 0xRRGGBB.
    static constexpr RGBAColor ofHex(std::uint32_t hex, float alpha = 1) {
        return {.red = static_cast<std::uint8_t>(hex >> 16),
                .green = static_cast<std::uint8_t>(hex >> 8),
                .blue = static_cast<std::uint8_t>(hex),
                .alpha = alpha};
    }

    friend bool operator==(const RGBAColor&, const RGBAColor&) = default;
};

// A colour that may have another value where the interface is dark.
class Color {
public:
    constexpr explicit Color(RGBAColor value)
        : Color(value, value) {}

    constexpr Color(RGBAColor light, RGBAColor dark)
        : m_light(light)
        , m_dark(dark) {}

    constexpr RGBAColor resolved(UserInterfaceStyle style) const {
        return style == UserInterfaceStyle::Dark ? m_dark : m_light;
    }

    // The same colour; whatever alpha it had does not count.
    constexpr Color withAlpha(float alpha) const {
        return {withAlpha(m_light, alpha), withAlpha(m_dark, alpha)};
    }

    friend bool operator==(const Color&, const Color&) = default;

private:
    static constexpr RGBAColor withAlpha(RGBAColor color, float alpha) {
        color.alpha = alpha;
        return color;
    }

    RGBAColor m_light;
    RGBAColor m_dark;
};

} // namespace tessarine
