#pragma once

#include <QtGui/QColor>

namespace platform {

// The colours of the program by name, each with a light and a dark value.
enum class Asset {
    Accent,
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
};

enum class Appearance { Light, Dark };

QColor color(Asset asset, Appearance appearance);

// In the appearance that the desktop asks for right now. Main thread.
QColor color(Asset asset);
Appearance currentAppearance();

// Makes the toolkit's own widgets follow the assets.
void applyPalette();

} // namespace platform
