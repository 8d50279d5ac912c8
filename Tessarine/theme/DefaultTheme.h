#pragma once

#include "Tessarine/theme/SemanticColors.h"
#include "Tessarine/theme/Theme.h"

namespace tessarine {

// What an editor looks like as long as nobody gives it another theme.
class DefaultTheme final : public Theme {
public:
    Font font() const override { return m_font; }

    Color textColor() const override { return semanticColors::label; }

    Color gutterBackgroundColor() const override { return semanticColors::secondarySystemBackground; }

    Color gutterHairlineColor() const override { return semanticColors::opaqueSeparator; }

    Color lineNumberColor() const override { return semanticColors::secondaryLabel; }

    Font lineNumberFont() const override { return m_font; }

    Color selectedLineBackgroundColor() const override { return semanticColors::secondarySystemBackground; }

    Color selectedLinesLineNumberColor() const override { return semanticColors::label; }

    Color selectedLinesGutterBackgroundColor() const override {
        return semanticColors::opaqueSeparator.withAlpha(0.4F);
    }

    Color invisibleCharactersColor() const override { return semanticColors::tertiaryLabel; }

    Color pageGuideHairlineColor() const override { return semanticColors::opaqueSeparator; }

    Color pageGuideBackgroundColor() const override { return semanticColors::secondarySystemBackground; }

    Color markedTextBackgroundColor() const override { return semanticColors::systemFill; }

    Color markedTextBackgroundBorderColor() const { return semanticColors::clear; }

    std::optional<Color> textColor(std::string_view captureName) const override;
    std::optional<Font> font(std::string_view captureName) const override;

private:
    const Font m_font{"Menlo-Regular", 14, {}};
};

} // namespace tessarine
