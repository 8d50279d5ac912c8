#pragma once

#include "themes/common/EditorTheme.h"

namespace tessarine::themes {

// The looks of an editor as they are written down.
struct Furniture {
    Color backgroundColor;
    UserInterfaceStyle userInterfaceStyle;
    Font font = Font::monospacedSystem(14);
    Color textColor;
    Color gutterBackgroundColor;
    Color gutterHairlineColor;
    Color lineNumberColor;
    Font lineNumberFont = Font::monospacedSystem(14);
    Color selectedLineBackgroundColor;
    Color selectedLinesLineNumberColor;
    Color selectedLinesGutterBackgroundColor;
    Color invisibleCharactersColor;
    Color pageGuideHairlineColor;
    Color pageGuideBackgroundColor;
    Color markedTextBackgroundColor;
    double markedTextBackgroundCornerRadius = 4;
};

// A theme whose furniture is settled when it is made. Captures have no fonts of their own.
class FixedTheme : public EditorTheme {
public:
    using EditorTheme::font;
    using EditorTheme::textColor;

    Color backgroundColor() const override { return m_furniture.backgroundColor; }

    UserInterfaceStyle userInterfaceStyle() const override { return m_furniture.userInterfaceStyle; }

    Font font() const override { return m_furniture.font; }

    Color textColor() const override { return m_furniture.textColor; }

    Color gutterBackgroundColor() const override { return m_furniture.gutterBackgroundColor; }

    Color gutterHairlineColor() const override { return m_furniture.gutterHairlineColor; }

    Color lineNumberColor() const override { return m_furniture.lineNumberColor; }

    Font lineNumberFont() const override { return m_furniture.lineNumberFont; }

    Color selectedLineBackgroundColor() const override { return m_furniture.selectedLineBackgroundColor; }

    Color selectedLinesLineNumberColor() const override { return m_furniture.selectedLinesLineNumberColor; }

    Color selectedLinesGutterBackgroundColor() const override {
        return m_furniture.selectedLinesGutterBackgroundColor;
    }

    Color invisibleCharactersColor() const override { return m_furniture.invisibleCharactersColor; }

    Color pageGuideHairlineColor() const override { return m_furniture.pageGuideHairlineColor; }

    Color pageGuideBackgroundColor() const override { return m_furniture.pageGuideBackgroundColor; }

    Color markedTextBackgroundColor() const override { return m_furniture.markedTextBackgroundColor; }

    double markedTextBackgroundCornerRadius() const override {
        return m_furniture.markedTextBackgroundCornerRadius;
    }

    std::optional<Font> font(std::string_view /*captureName*/) const override { return std::nullopt; }

protected:
    explicit FixedTheme(Furniture furniture)
        : m_furniture(std::move(furniture)) {}

private:
    const Furniture m_furniture;
};

} // namespace tessarine::themes
