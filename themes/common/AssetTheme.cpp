#include "themes/common/AssetTheme.h"

namespace tessarine::themes {

AssetTheme::AssetTheme(const ColorAssets& assets, const Description& description)
    : FixedTheme(furniture(assets, description))
    , m_highlightColors(highlightColors(assets, description)) {}

std::optional<Color> AssetTheme::textColor(std::string_view captureName) const {
    const auto name = highlightName(captureName);
    return name ? std::optional(m_highlightColors[static_cast<std::size_t>(*name)]) : std::nullopt;
}

Furniture AssetTheme::furniture(const ColorAssets& assets, const Description& description) {
    const Color foreground = assets.named(description.prefix + "Foreground");
    const Color currentLine = assets.named(description.prefix + "CurrentLine");
    return {.backgroundColor = assets.named(description.prefix + "Background"),
            .userInterfaceStyle = description.userInterfaceStyle,
            .textColor = foreground,
            .gutterBackgroundColor = currentLine,
            .gutterHairlineColor = assets.named(description.prefix + "Comment"),
            .lineNumberColor = foreground.withAlpha(0.5F),
            .selectedLineBackgroundColor = currentLine,
            .selectedLinesLineNumberColor = foreground,
            .selectedLinesGutterBackgroundColor = Color(RGBAColor::ofHex(0x000000, 0)),
            .invisibleCharactersColor = foreground.withAlpha(0.7F),
            .pageGuideHairlineColor = foreground,
            .pageGuideBackgroundColor = currentLine,
            .markedTextBackgroundColor = foreground.withAlpha(0.1F)};
}

AssetTheme::HighlightColors AssetTheme::highlightColors(const ColorAssets& assets,
                                                        const Description& description) {
    const auto named = [&](const std::string& name) { return assets.named(description.prefix + name); };
    const Color faint = named("Foreground").withAlpha(0.75F);
    return {named("Comment"),
            named("Blue"),
            named("Purple"),
            named(description.numberColor),
            faint,
            named("Aqua"),
            faint,
            named("Green"),
            named("Red")};
}

} // namespace tessarine::themes
