#pragma once

#include "Tessarine/theme/Theme.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tessarine::editor {

// Another theme with its texts some points larger, or smaller down to what can just be read.
class ZoomedTheme final : public Theme {
public:
    ZoomedTheme(std::shared_ptr<const Theme> theme, int points)
        : m_theme(std::move(theme))
        , m_points(points) {}

    Font font() const override { return zoomed(m_theme->font()); }

    Font lineNumberFont() const override { return zoomed(m_theme->lineNumberFont()); }

    std::optional<Font> font(std::string_view captureName) const override {
        const auto font = m_theme->font(captureName);
        return font ? std::optional(zoomed(*font)) : std::nullopt;
    }

    Color textColor() const override { return m_theme->textColor(); }

    Color gutterBackgroundColor() const override { return m_theme->gutterBackgroundColor(); }

    Color gutterHairlineColor() const override { return m_theme->gutterHairlineColor(); }

    double gutterHairlineWidth(double screenScale) const override {
        return m_theme->gutterHairlineWidth(screenScale);
    }

    Color lineNumberColor() const override { return m_theme->lineNumberColor(); }

    Color selectedLineBackgroundColor() const override { return m_theme->selectedLineBackgroundColor(); }

    Color selectedLinesLineNumberColor() const override { return m_theme->selectedLinesLineNumberColor(); }

    Color selectedLinesGutterBackgroundColor() const override {
        return m_theme->selectedLinesGutterBackgroundColor();
    }

    Color invisibleCharactersColor() const override { return m_theme->invisibleCharactersColor(); }

    Color pageGuideHairlineColor() const override { return m_theme->pageGuideHairlineColor(); }

    Color pageGuideBackgroundColor() const override { return m_theme->pageGuideBackgroundColor(); }

    Color markedTextBackgroundColor() const override { return m_theme->markedTextBackgroundColor(); }

    double markedTextBackgroundCornerRadius() const override {
        return m_theme->markedTextBackgroundCornerRadius();
    }

    std::optional<Color> textColor(std::string_view captureName) const override {
        return m_theme->textColor(captureName);
    }

    FontTraits fontTraits(std::string_view captureName) const override {
        return m_theme->fontTraits(captureName);
    }

    std::optional<Shadow> shadow(std::string_view captureName) const override {
        return m_theme->shadow(captureName);
    }

private:
    static constexpr double smallestSize = 6;

    Font zoomed(const Font& font) const {
        return {font.name, std::max(smallestSize, font.pointSize + m_points), font.traits};
    }

    const std::shared_ptr<const Theme> m_theme;
    const int m_points;
};

} // namespace tessarine::editor
