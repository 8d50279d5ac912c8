#pragma once

#include "platform/screens/appearance/Palette.h"

#include <array>

namespace quillet {

// The colours a tag can have, by colorIndex. A stored index is always expected to be in range.
inline constexpr std::array tagColors{
    platform::Asset::KindaGreen,  platform::Asset::BlueStart,    platform::Asset::GreenStart,
    platform::Asset::Purple,      platform::Asset::SystemYellow, platform::Asset::SystemOrange,
    platform::Asset::SystemRed,   platform::Asset::SystemPink,   platform::Asset::SystemGray,
    platform::Asset::SystemBlack,
};

// Fatal for an index outside the table: there is no colour to fall back on.
platform::Asset tagColor(int colorIndex);

} // namespace quillet
