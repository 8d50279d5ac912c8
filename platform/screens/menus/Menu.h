#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <variant>
#include <vector>

class QMenu;
class QWidget;

namespace platform {

struct MenuAction {
    enum class Role { Normal, Destructive };

    QString title;
    QString symbol{}; // its image; may be empty
    std::function<void()> handler{};
    Role role = Role::Normal;
    QString shortcut{}; // shown beside the title only, in portable form such as "Ctrl+S"
};

// A menu as a value. An inline menu stands among the entries of the one around it, set off by lines.
struct Menu {
    enum class Display { Submenu, Inline };

    using Entry = std::variant<MenuAction, Menu>;

    QString title;
    std::vector<Entry> entries{};
    Display display = Display::Submenu;
};

// The menu to be shown, a child of `parent`. An inline menu's title heads it where it differs from the title
// of the menu around it. Handlers run in a later turn of the main loop, when the menu is
// gone, and not at all when `parent` is gone too.
std::unique_ptr<QMenu> makeMenu(const Menu& menu, QWidget* parent);

// Opens the menu at a point of the screen and returns at once.
void popUpMenu(const Menu& menu, QWidget* over, QPoint screenPoint);

// The same below `button`, flush with whichever of its sides keeps the menu in the window.
void popUpMenuBelow(const Menu& menu, QWidget& button);

} // namespace platform
