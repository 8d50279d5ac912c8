#pragma once

#include "Tessarine/base/TextAttributes.h"
#include "Tessarine/base/UserInterfaceStyle.h"
#include "Tessarine/view/FaceMetrics.h"

#include <QtGui/QTextFormat>

namespace tessarine {

// What of a run's attributes the toolkit needs, looked up once. Where they say nothing it is the host's own
// font, and black or white.
struct RowStyle {
    explicit RowStyle(const TextAttributes& attributes);

    // Whether they look the same as those it was made of.
    bool isOf(const TextAttributes& attributes) const;

    // Whether text is as wide in both.
    bool hasFaceOf(const RowStyle& other) const { return font == other.font && kern == other.kern; }

    const std::optional<Color> foregroundColor;
    const std::optional<Font> font;
    const std::optional<double> kern;
    const std::optional<Shadow> shadow;

    const QFont face; // with the kern
    const Color color;
    const FaceMetrics metrics; // of the face

    // What the toolkit's layouts want. Copies of one format share what the toolkit works out of it.
    const QTextCharFormat& format(UserInterfaceStyle style) const {
        return style == UserInterfaceStyle::Dark ? m_darkFormat : m_lightFormat;
    }

private:
    const QTextCharFormat m_lightFormat;
    const QTextCharFormat m_darkFormat;
};

} // namespace tessarine
