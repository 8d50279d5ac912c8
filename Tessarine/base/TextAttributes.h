#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Font.h"
#include "Tessarine/base/Shadow.h"

#include <optional>

namespace tessarine {

// What a stretch of an AttributedString looks like; what is absent is left to whoever draws. Lengths in
// points.
struct TextAttributes {
    std::optional<Color> foregroundColor = std::nullopt;
    std::optional<Font> font = std::nullopt;
    std::optional<double> kern = std::nullopt; // between every two characters, besides what the font has
    std::optional<Shadow> shadow = std::nullopt;
    std::optional<double> defaultTabInterval = std::nullopt; // of a paragraph without tab stops of its own

    // Marks that say nothing to whoever draws: with what traits the font here has been made.
    bool isBold = false;
    bool isItalic = false;

    // Takes over what the others have.
    void add(const TextAttributes& others);

    friend bool operator==(const TextAttributes&, const TextAttributes&) = default;
};

} // namespace tessarine
