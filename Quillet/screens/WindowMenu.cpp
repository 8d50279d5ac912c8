#include "Quillet/screens/WindowMenu.h"

#include <QtWidgets/QMenu>

namespace quillet {

WindowMenu::WindowMenu(const std::vector<platform::Menu>& menus, QWidget* parent)
    : QMenuBar(parent) {
    setAccessibleName(QStringLiteral("Menu"));
    for (const auto& menu : menus)
        addMenu(platform::makeMenu(menu, this).release()); // this is its parent
}

} // namespace quillet
