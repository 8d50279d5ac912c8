#pragma once

#include "Tessarine/theme/DefaultTheme.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tessarine {

// The furniture of the default theme, and captures as a test wants them, by their whole names.
class SampleTheme final : public Theme {
public:
    struct Look {
        std::optional<Color> textColor = std::nullopt;
        std::optional<Shadow> shadow = std::nullopt;
        std::optional<Font> font = std::nullopt;
        FontTraits fontTraits = {};
    };

    std::map<std::string, Look, std::less<>> looks;

    // For the names that have no look.
    std::function<std::optional<Color>(std::string_view)> otherColors = [](std::string_view) {
        return std::nullopt;
    };

    static Color colorOf(std::string_view name) {
        return Color(RGBAColor::ofHex(static_cast<std::uint32_t>(std::hash<std::string_view>()(name))));
    }

    Font font() const override { return m_furniture.font(); }

    Color textColor() const override { return m_furniture.textColor(); }

    Color gutterBackgroundColor() const override { return m_furniture.gutterBackgroundColor(); }

    Color gutterHairlineColor() const override { return m_furniture.gutterHairlineColor(); }

    Color lineNumberColor() const override { return m_furniture.lineNumberColor(); }

    Font lineNumberFont() const override { return m_furniture.lineNumberFont(); }

    Color selectedLineBackgroundColor() const override { return m_furniture.selectedLineBackgroundColor(); }

    Color selectedLinesLineNumberColor() const override { return m_furniture.selectedLinesLineNumberColor(); }

    Color selectedLinesGutterBackgroundColor() const override {
        return m_furniture.selectedLinesGutterBackgroundColor();
    }

    Color invisibleCharactersColor() const override { return m_furniture.invisibleCharactersColor(); }

    Color pageGuideHairlineColor() const override { return m_furniture.pageGuideHairlineColor(); }

    Color pageGuideBackgroundColor() const override { return m_furniture.pageGuideBackgroundColor(); }

    Color markedTextBackgroundColor() const override { return m_furniture.markedTextBackgroundColor(); }

    std::optional<Color> textColor(std::string_view captureName) const override {
        const auto found = looks.find(captureName);
        return found == looks.end() ? otherColors(captureName) : found->second.textColor;
    }

    std::optional<Font> font(std::string_view captureName) const override { return look(captureName).font; }

    FontTraits fontTraits(std::string_view captureName) const override {
        return look(captureName).fontTraits;
    }

    std::optional<Shadow> shadow(std::string_view captureName) const override {
        return look(captureName).shadow;
    }

private:
    Look look(std::string_view captureName) const {
        const auto found = looks.find(captureName);
        return found == looks.end() ? Look() : found->second;
    }

    DefaultTheme m_furniture;
};

} // namespace tessarine
