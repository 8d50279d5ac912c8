#pragma once

#include "Tessarine/theme/SemanticColors.h"
#include "themes/common/EditorTheme.h"

namespace tessarine {

// Strong colours, no two of them alike, in a font that every machine has on which the tests run.
class PictureTheme final : public themes::EditorTheme {
public:
    Color backgroundColor() const override { return color(0xFFFFFF, 0x101014); }

    UserInterfaceStyle userInterfaceStyle() const override { return UserInterfaceStyle::Light; }

    Font font() const override { return {"DejaVu Sans Mono-Regular", 12, {}}; }

    Color textColor() const override { return color(0x000000, 0xFFFFFF); }

    Color gutterBackgroundColor() const override { return color(0xC8F0C8, 0x104010); }

    Color gutterHairlineColor() const override { return color(0xD00000, 0xFF6060); }

    Color lineNumberColor() const override { return color(0x0000C0, 0x9090FF); }

    Font lineNumberFont() const override { return font(); }

    Color selectedLineBackgroundColor() const override { return color(0xF0E8A0, 0x504800); }

    Color selectedLinesLineNumberColor() const override { return color(0xC00000, 0xFF9090); }

    Color selectedLinesGutterBackgroundColor() const override { return color(0xF0B060, 0x805010); }

    Color invisibleCharactersColor() const override { return color(0xD000D0, 0xFF80FF); }

    Color pageGuideHairlineColor() const override { return color(0x006060, 0x60FFFF); }

    Color pageGuideBackgroundColor() const override { return color(0xD8E8FF, 0x102050); }

    Color markedTextBackgroundColor() const override { return color(0x80E0E0, 0x007070); }

    double markedTextBackgroundCornerRadius() const override { return 4; }

    std::optional<Color> textColor(std::string_view captureName) const override {
        if (captureName == "keyword") return color(0xC00060, 0xFF70B0);
        if (captureName == "string") return color(0x008000, 0x70E070);
        return std::nullopt;
    }

    std::optional<Font> font(std::string_view captureName) const override {
        if (captureName == "keyword") return Font{"DejaVu Sans Mono-Bold", 12, {}};
        return std::nullopt;
    }

    std::optional<Shadow> shadow(std::string_view captureName) const override {
        if (captureName == "number")
            return Shadow{.color = color(0xF08000, 0xF0A000), .offsetX = 2, .offsetY = 2};
        return std::nullopt;
    }

private:
    static Color color(std::uint32_t light, std::uint32_t dark) {
        return {RGBAColor::ofHex(light), RGBAColor::ofHex(dark)};
    }
};

} // namespace tessarine
