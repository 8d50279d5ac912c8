#pragma once

#include <QtGui/QFont>

class QWidget;

namespace platform {

// The sizes of text, all relative to the system's font, so that they grow with it.
enum class TextStyle {
    LargeTitle,  // 1.9 times, bold: the name of a column
    Title,       // 1.35 times, bold: of a card or group
    Headline,    // as the body, bold
    Body,        // the system's font
    Subheadline, // 0.92 times
    Footnote,    // 0.85 times
};

QFont font(TextStyle style);

// Gives `widget` the font of `style`, now and whenever the system's font changes.
void setTextStyle(QWidget& widget, TextStyle style);

// The system's font at a size in points of the design, grown by as much as the user made the system's font
// larger than its usual ten typographic points; never smaller.
QFont systemFont(double size);

// Gives `widget` that font, now and whenever the system's font changes.
void setSystemFont(QWidget& widget, double size);

} // namespace platform
