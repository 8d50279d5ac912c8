#include "platform/screens/appearance/Palette.h"

#include "platform/screens/appearance/DesktopSettings.h"

#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

namespace platform {

namespace {

struct Values {
    QRgb light;
    QRgb dark;
};

Values valuesOf(Asset asset) {
    switch (asset) {
    case Asset::Accent:
        return {0xFF1F5CD6, 0xFF75A4FF};
    case Asset::OnAccent:
        return {0xFFFFFFFF, 0xFF16171B}; // white is too faint on the accent of dark
    case Asset::BackgroundGrey:
        return {0xFFF1F2F6, 0xFF16171B};
    case Asset::Card:
        return {0xFFFFFFFF, 0xFF23252B};
    case Asset::AshgroveWhite:
        return {0xFFFCFCFE, 0xFF1E2026};
    case Asset::Separator:
        return {0xFFE1E3EA, 0xFF363943};
    case Asset::Selection:
        return {0xFFDCE7FF, 0xFF293A5C};
    case Asset::Text:
        return {0xFF1B1D24, 0xFFF0F1F5};
    case Asset::TextSecondary:
        return {0xFF5F6473, 0xFFA0A5B3};
    case Asset::KindaGreen:
        return {0xFF2A9460, 0xFF4CC98A};
    case Asset::BlueStart:
        return {0xFF2F80ED, 0xFF63A4FF};
    case Asset::GreenStart:
        return {0xFF0F8F84, 0xFF2BC4B6};
    case Asset::Purple:
        return {0xFF8E54E9, 0xFFB48BFF};
    case Asset::SystemYellow:
        return {0xFFA67C00, 0xFFFFD60A}; // a gold on light, where yellow itself would not be seen
    case Asset::SystemOrange:
        return {0xFFCD670C, 0xFFFF9F0A};
    case Asset::SystemRed:
        return {0xFFC4241C, 0xFFFF7D76};
    case Asset::SystemPink:
        return {0xFFE0355F, 0xFFFF6482};
    case Asset::SystemGray:
        return {0xFF7C7F88, 0xFF9A9CA5};
    case Asset::SystemBlack:
        return {0xFF000000, 0xFFD8D9DE}; // black itself would vanish on dark
    case Asset::HalcyonixBlue:
        return {0xFF2561C8, 0xFF75A8FF};
    case Asset::IconColor:
        return {0xFF3C4252, 0xFFD3D6E0};
    case Asset::ActiveOrange:
        return {0xFFB85C00, 0xFFB85C00};
    case Asset::KindaDarkThing:
        return {0xFF5A5F6B, 0xFF6B7080};
    case Asset::GradientStart:
        return {0xFF1C6BF0, 0xFF2B5FC2};
    case Asset::GradientEnd:
        return {0xFF2256C9, 0xFF1E3F8A};
    }
    return {0xFF000000, 0xFFFFFFFF};
}

} // namespace

QColor color(Asset asset, Appearance appearance) {
    const Values values = valuesOf(asset);
    return QColor::fromRgba(appearance == Appearance::Light ? values.light : values.dark);
}

Appearance currentAppearance() {
    return DesktopSettings::shared().appearance();
}

QColor color(Asset asset) {
    return color(asset, currentAppearance());
}

void applyPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, color(Asset::BackgroundGrey));
    palette.setColor(QPalette::Base, color(Asset::Card));
    palette.setColor(QPalette::AlternateBase, color(Asset::BackgroundGrey));
    palette.setColor(QPalette::Button, color(Asset::Card));
    palette.setColor(QPalette::ToolTipBase, color(Asset::Card));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, color(Asset::Text));
    palette.setColor(QPalette::PlaceholderText, color(Asset::TextSecondary));
    palette.setColor(QPalette::Highlight, color(Asset::Accent));
    palette.setColor(QPalette::HighlightedText, color(Asset::OnAccent));
    palette.setColor(QPalette::Link, color(Asset::Accent));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, color(Asset::TextSecondary));
    QApplication::setPalette(palette);
}

} // namespace platform
