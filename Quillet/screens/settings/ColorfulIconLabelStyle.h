#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QString>

class QPainter;
class QRect;

namespace quillet {

// A label with its icon in white on a rounded square of a colour, the title beside it. All of it grows with
// the user's text by `accessibilityScale`.
struct ColorfulIconLabelStyle {
    platform::Asset color = platform::Asset::SystemOrange;
    double accessibilityScale = 1;

    // The scale of the system's font as it is now.
    static double currentScale();

    int side() const; // of the square, in points

    // In the direction that text runs.
    void draw(QPainter& painter, const QRect& rect, const QString& symbol, const QString& title,
              Qt::LayoutDirection direction) const;
};

} // namespace quillet
