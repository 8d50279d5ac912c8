#include "themes/onedark/OneDarkTheme.h"

namespace tessarine::themes {

namespace {

constexpr std::array colors{
#include "themes/onedark/OneDarkColors.inc"
};

} // namespace

OneDarkTheme::OneDarkTheme()
    : AssetTheme(
          ColorAssets(colors),
          {.prefix = "OneDark", .userInterfaceStyle = UserInterfaceStyle::Dark, .numberColor = "Yellow"}) {}

} // namespace tessarine::themes
