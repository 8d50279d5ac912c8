#include "themes/tomorrownight/TomorrowNightTheme.h"

namespace tessarine::themes {

namespace {

constexpr std::array colors{
#include "themes/tomorrownight/TomorrowNightColors.inc"
};

} // namespace

TomorrowNightTheme::TomorrowNightTheme()
    : AssetTheme(ColorAssets(colors),
                 {.prefix = "TomorrowNight", .userInterfaceStyle = UserInterfaceStyle::Dark}) {}

} // namespace tessarine::themes
