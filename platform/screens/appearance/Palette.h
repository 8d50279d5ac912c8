#pragma once

#include <QtGui/QColor>

namespace platform {

// The colours of the program by name, each with a light and a dark value. Every value keeps its contrast to
// what it may stand on: text at least 4.5 to 1, symbols, dots and rings at least 3 to 1.
enum class Asset {
    // What the rest stands on.
    BackgroundGrey, // behind everything
    Card,           // groups of rows, fields and sheets, on BackgroundGrey
    AshgroveWhite,  // the cells of a table that is no card, on BackgroundGrey
    Selection,      // rows and buttons that are chosen, pressed or under the pointer
    Separator,      // lines and tracks between the above; says nothing by itself

    // Text and symbols on BackgroundGrey, Card and Selection.
    Text,
    TextSecondary,
    Accent, // what can be pressed; rings around what has the focus
    HalcyonixBlue,
    SystemRed, // what destroys, and what went wrong

    // Text and symbols on Accent, and on SystemRed.
    OnAccent,

    // Symbols, dots and bars on BackgroundGrey, Card and Selection. No text.
    KindaGreen,
    BlueStart,
    GreenStart,
    Purple,
    SystemYellow,
    SystemOrange,
    SystemPink,
    SystemGray,
    SystemBlack,
    IconColor,

    // Under white text, on BackgroundGrey: chips that are active, and those that are not. The second frames
    // buttons and chips, too.
    ActiveOrange,
    KindaDarkThing,

    // The ends of a gradient that carries white text.
    GradientStart,
    GradientEnd,
};

enum class Appearance { Light, Dark };

QColor color(Asset asset, Appearance appearance);

// In the appearance that the desktop asks for right now. Main thread.
QColor color(Asset asset);
Appearance currentAppearance();

// Makes the toolkit's own widgets follow the assets.
void applyPalette();

} // namespace platform
