#include "themes/tomorrow/TomorrowTheme.h"

namespace tessarine::themes {

namespace {

constexpr std::array colors{
#include "themes/tomorrow/TomorrowColors.inc"
};

} // namespace

TomorrowTheme::TomorrowTheme()
    : AssetTheme(ColorAssets(colors),
                 {.prefix = "Tomorrow", .userInterfaceStyle = UserInterfaceStyle::Light}) {}

} // namespace tessarine::themes
