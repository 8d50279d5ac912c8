#include "account/Style.h"

#include "platform/screens/appearance/Palette.h"

namespace account {

using platform::Asset;
using platform::color;

namespace {

// White is too faint on the accent of the dark appearance.
QColor onAccent() {
    const bool isDark = platform::currentAppearance() == platform::Appearance::Dark;
    return isDark ? color(Asset::BackgroundGrey) : QColor(Qt::white);
}

const QString sheet = QStringLiteral(R"(
QLineEdit, QPushButton { background: @card; color: @text; border: 1px solid @separator; border-radius: 10px; }
QLineEdit { padding: 0 10px; }
QLineEdit:focus { border: 2px solid @accent; padding: 0 9px; }
QPushButton { padding: 0 16px; }
QPushButton:hover { background: @selection; }
QPushButton:focus { border: 2px solid @secondary; padding: 0 15px; }
QPushButton[role=primary], QPushButton[role=kind]:checked {
    background: @accent; color: @onAccent; border-color: @accent; }
QPushButton[role=primary]:focus, QPushButton[role=kind]:checked:focus { border-color: @text; }
QPushButton[role=primary] { font-weight: bold; }
QPushButton[role=destructive] { background: transparent; color: @red; border-color: transparent; padding: 0 8px; }
QPushButton[role=destructive]:focus { border-color: @red; padding: 0 7px; }
QPushButton[side=left] { border-top-right-radius: 0; border-bottom-right-radius: 0; }
QPushButton[side=right] { border-top-left-radius: 0; border-bottom-left-radius: 0; }
QPushButton:disabled { background: @separator; color: @secondary; border-color: @separator; }
)");

} // namespace

QString windowStyle() {
    const std::pair<QString, QColor> colors[] = {
        {QStringLiteral("@card"), color(Asset::Card)},
        {QStringLiteral("@text"), color(Asset::Text)},
        {QStringLiteral("@separator"), color(Asset::Separator)},
        {QStringLiteral("@selection"), color(Asset::Selection)},
        {QStringLiteral("@secondary"), color(Asset::TextSecondary)},
        {QStringLiteral("@onAccent"), onAccent()},
        {QStringLiteral("@accent"), color(Asset::Accent)},
        {QStringLiteral("@red"), color(Asset::SystemRed)},
    };
    QString style = sheet;
    for (const auto& [name, value] : colors)
        style.replace(name, value.name());
    return style;
}

} // namespace account
