#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Font.h"
#include "Tessarine/base/Shadow.h"

#include <optional>
#include <string_view>

namespace tessarine {

// How an editor looks: its furniture, and the text of each kind of capture. Lengths in points.
//
// A capture's name has its parts between dots, the most general first ("string.special"). Where a theme says
// nothing about a capture the text stays as it is. Thread: the main one.
class Theme {
public:
    Theme() = default;
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;
    virtual ~Theme() = default;

    virtual Font font() const = 0;
    virtual Color textColor() const = 0;

    virtual Color gutterBackgroundColor() const = 0;
    virtual Color gutterHairlineColor() const = 0;

    // The scale is that of the screen, in device pixels a point. One of them, if a theme does not say.
    virtual double gutterHairlineWidth(double screenScale) const { return 1 / screenScale; }

    virtual Color lineNumberColor() const = 0;
    virtual Font lineNumberFont() const = 0;

    virtual Color selectedLineBackgroundColor() const = 0;
    virtual Color selectedLinesLineNumberColor() const = 0;
    virtual Color selectedLinesGutterBackgroundColor() const = 0;

    virtual Color invisibleCharactersColor() const = 0;

    virtual Color pageGuideHairlineColor() const = 0;
    virtual Color pageGuideBackgroundColor() const = 0;

    virtual Color markedTextBackgroundColor() const = 0;

    virtual double markedTextBackgroundCornerRadius() const { return 0; }

    virtual std::optional<Color> textColor(std::string_view captureName) const = 0;
    virtual std::optional<Font> font(std::string_view captureName) const = 0;

    virtual FontTraits fontTraits(std::string_view /*captureName*/) const { return {}; }

    virtual std::optional<Shadow> shadow(std::string_view /*captureName*/) const { return std::nullopt; }
};

} // namespace tessarine
