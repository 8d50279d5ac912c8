#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QString>

#include <array>

namespace quillet {

// A colour that a tag can have, and what it is called where it cannot be seen.
struct TagColor {
    platform::Asset asset;
    QLatin1StringView name;
};

// By colorIndex. A stored index is always expected to be in range.
inline constexpr std::array tagColors{
    TagColor{platform::Asset::KindaGreen, QLatin1StringView("Green")},
    TagColor{platform::Asset::BlueStart, QLatin1StringView("Blue")},
    TagColor{platform::Asset::GreenStart, QLatin1StringView("Teal")},
    TagColor{platform::Asset::Purple, QLatin1StringView("Purple")},
    TagColor{platform::Asset::SystemYellow, QLatin1StringView("Yellow")},
    TagColor{platform::Asset::SystemOrange, QLatin1StringView("Orange")},
    TagColor{platform::Asset::SystemRed, QLatin1StringView("Red")},
    TagColor{platform::Asset::SystemPink, QLatin1StringView("Pink")},
    TagColor{platform::Asset::SystemGray, QLatin1StringView("Gray")},
    TagColor{platform::Asset::SystemBlack, QLatin1StringView("Black")},
};

// Fatal for an index outside the table: there is no colour to fall back on.
platform::Asset tagColor(int colorIndex);

} // namespace quillet
