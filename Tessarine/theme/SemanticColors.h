// Colours by what they are for, each with a light and a dark value.
//
// Text keeps a contrast of 4.5 to 1, tertiary labels and separators one of 3 to 1, to the two backgrounds;
// all but separators also where the fill covers a background.
#pragma once

#include "Tessarine/base/Color.h"

namespace tessarine::semanticColors {

namespace detail {

constexpr Color lightAndDark(std::uint32_t light, std::uint32_t dark) {
    return {RGBAColor::ofHex(light), RGBAColor::ofHex(dark)};
}

} // namespace detail

inline constexpr Color clear{RGBAColor::ofHex(0x000000, 0)};

inline constexpr Color systemBackground = detail::lightAndDark(0xFFFFFF, 0x101114);
inline constexpr Color secondarySystemBackground = detail::lightAndDark(0xF2F3F6, 0x1C1E22);
inline constexpr Color systemFill{RGBAColor::ofHex(0x6F747E, 0.18F), RGBAColor::ofHex(0x8A8F99, 0.28F)};
inline constexpr Color opaqueSeparator = detail::lightAndDark(0x80858E, 0x7A808B);

inline constexpr Color label = detail::lightAndDark(0x16181D, 0xF2F3F5);
inline constexpr Color secondaryLabel = detail::lightAndDark(0x555A63, 0xA9AEB8);
inline constexpr Color tertiaryLabel = detail::lightAndDark(0x73777F, 0x8A8F99);

inline constexpr Color systemBlue = detail::lightAndDark(0x1456B8, 0x7DB7FF);
inline constexpr Color systemGreen = detail::lightAndDark(0x1B6B33, 0x6FD08A);
inline constexpr Color systemOrange = detail::lightAndDark(0x9A4A08, 0xF5A65B);
inline constexpr Color systemPurple = detail::lightAndDark(0x7A35B0, 0xCFA3F7);
inline constexpr Color systemRed = detail::lightAndDark(0xB3232B, 0xFF8F8A);

} // namespace tessarine::semanticColors
