#pragma once

#include <QtGui/QColor>

namespace platform {

// The colours of the program by name, each with a light and a dark value.
enum class Asset {
    Accent,
    OnAccent,       // text and symbols on Accent
    BackgroundGrey, // behind everything
    Card,           // groups of rows and sheets, on BackgroundGrey
    Separator,
    Selection,
    Text,
    TextSecondary,
    KindaGreen,
    BlueStart,
    GreenStart,
    Purple,
    SystemYellow,
    SystemOrange,
    SystemRed,
    SystemPink,
    SystemGray,
    SystemBlack,
    HalcyonixBlue,
    IconColor,
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
