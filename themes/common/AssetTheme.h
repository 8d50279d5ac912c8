#pragma once

#include "themes/common/ColorAssets.h"
#include "themes/common/FixedTheme.h"
#include "themes/common/HighlightName.h"

#include <array>
#include <string>

namespace tessarine::themes {

// A theme that takes its colours from a module's table, where their names begin with the theme's.
class AssetTheme : public FixedTheme {
public:
    using FixedTheme::textColor;

    std::optional<Color> textColor(std::string_view captureName) const override;

protected:
    struct Description {
        std::string prefix;
        UserInterfaceStyle userInterfaceStyle;
        std::string numberColor = "Orange"; // what follows the prefix in the colour of numbers
    };

    AssetTheme(const ColorAssets& assets, const Description& description);

private:
    using HighlightColors = std::array<Color, allHighlightNames.size()>;

    static Furniture furniture(const ColorAssets& assets, const Description& description);
    static HighlightColors highlightColors(const ColorAssets& assets, const Description& description);

    const HighlightColors m_highlightColors; // by HighlightName
};

} // namespace tessarine::themes
