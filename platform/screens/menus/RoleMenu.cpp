#include "platform/screens/menus/RoleMenu.h"

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QStyleOption>

namespace platform {

namespace {

constexpr const char* destructiveProperty = "destructive";

} // namespace

void RoleMenu::setDestructive(QAction& action) {
    action.setProperty(destructiveProperty, true);
}

void RoleMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    if (!action || !action->property(destructiveProperty).toBool()) return;
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        option->palette.setColor(QPalette::Active, role, color(Asset::SystemRed));
}

} // namespace platform
