#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QRect>
#include <QtCore/QString>

class QPainter;

namespace quillet {

// Draws a label as an icon in white on a rounded square, 28 points on a side, and a title beside it. Grows
// with the system's font. Made for one painting; main thread.
class ColorfulIconLabelStyle {
public:
    struct Label {
        QString title;
        QString symbol; // on the square
        QString image;  // of the program's own, in its own colours, in the place of both
    };

    // Of the square, in both appearances as it is in the light one: what is on it is white in both.
    explicit ColorfulIconLabelStyle(platform::Asset color);

    // How much larger than usual the system's font is; never below 1.
    double accessibilityScale() const { return m_accessibilityScale; }

    // In points. As wide as the whole label needs to be, as high as the square.
    QSize size(const QString& title) const;

    // In the middle of the height of `rect`, from where a line starts in the painter's direction. A title
    // that is too long is cut short.
    void draw(QPainter& painter, const QRect& rect, const Label& label) const;

private:
    void drawIcon(QPainter& painter, const QRect& square, const Label& label) const;

    platform::Asset m_color;
    double m_accessibilityScale;
};

} // namespace quillet
