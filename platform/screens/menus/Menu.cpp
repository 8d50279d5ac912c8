#include "platform/screens/menus/Menu.h"

#include "platform/foundation/MainQueue.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/menus/RoleMenu.h"

#include <QtCore/QPointer>

namespace platform {

namespace {

QString plainText(QString title) {
    return title.replace(u'&', QStringLiteral("&&")); // no letter of a title is a mnemonic
}

void addAction(QMenu& menu, const MenuAction& entry, QWidget* over) {
    auto* action = menu.addAction(plainText(entry.title));
    const bool isDestructive = entry.role == MenuAction::Role::Destructive;
    if (isDestructive) RoleMenu::setDestructive(*action);
    if (!entry.symbol.isEmpty())
        action->setIcon(symbolIcon(entry.symbol, isDestructive ? Asset::SystemRed : Asset::IconColor));
    if (!entry.shortcut.isEmpty()) {
        action->setShortcut(QKeySequence(entry.shortcut, QKeySequence::PortableText));
        action->setShortcutContext(Qt::WidgetShortcut); // what it does elsewhere is not this menu's
        action->setShortcutVisibleInContextMenu(true);
    }
    QObject::connect(action, &QAction::triggered, action, [handler = entry.handler, over = QPointer(over)] {
        dispatchToMain([handler, over] {
            if (handler && over) handler();
        });
    });
}

void addEntries(QMenu& target, const Menu& menu, QWidget* over);

// A title brings a line of its own.
void addTitle(QMenu& target, const QString& title) {
    const auto actions = target.actions();
    if (!actions.isEmpty() && actions.last()->isSeparator()) delete actions.last();
    target.addSection(plainText(title));
}

void addInline(QMenu& target, const Menu& menu, const QString& titleAround, QWidget* over) {
    const bool isTitled = !menu.title.isEmpty() && menu.title != titleAround;
    if (isTitled)
        addTitle(target, menu.title);
    else
        target.addSeparator();
    addEntries(target, menu, over);
    target.addSeparator();
}

// Makes a menu whose entries work for as long as `over` is there.
std::unique_ptr<QMenu> makeMenuOver(const Menu& menu, QWidget* parent, QWidget* over) {
    auto made = std::make_unique<RoleMenu>(plainText(menu.title), parent);
    made->setAccessibleName(menu.title);
    addEntries(*made, menu, over);
    return made;
}

// Lines at the ends and double ones are not drawn: QMenu collapses separators.
void addEntries(QMenu& target, const Menu& menu, QWidget* over) {
    for (const auto& entry : menu.entries) {
        if (const auto* action = std::get_if<MenuAction>(&entry)) {
            addAction(target, *action, over);
            continue;
        }
        const auto& inner = std::get<Menu>(entry);
        if (inner.display == Menu::Display::Inline)
            addInline(target, inner, menu.title, over);
        else
            target.addMenu(makeMenuOver(inner, &target, over).release()); // the menu around it owns it
    }
}

// It deletes itself when it closes, with its parent at the latest.
QMenu& selfDeletingMenu(const Menu& menu, QWidget* over) {
    auto& made = *makeMenu(menu, over).release();
    made.setAttribute(Qt::WA_DeleteOnClose);
    return made;
}

} // namespace

std::unique_ptr<QMenu> makeMenu(const Menu& menu, QWidget* parent) {
    return makeMenuOver(menu, parent, parent);
}

void popUpMenu(const Menu& menu, QWidget* over, QPoint screenPoint) {
    selfDeletingMenu(menu, over).popup(screenPoint);
}

void popUpMenuBelow(const Menu& menu, QWidget& button) {
    auto& shown = selfDeletingMenu(menu, &button);
    const QSize size = shown.sizeHint();
    const QRect anchor(button.mapToGlobal(QPoint()), button.size());
    const QRect window(button.window()->mapToGlobal(QPoint()), button.window()->size());
    const int toTheRight = anchor.left(); // where it begins if it grows to that side
    const int toTheLeft = anchor.right() + 1 - size.width();
    int x = button.isRightToLeft() ? toTheLeft : toTheRight;
    if (toTheRight + size.width() > window.right()) x = toTheLeft;
    if (toTheLeft < window.left()) x = toTheRight;
    shown.popup(QPoint(x, anchor.bottom() + 1));
}

} // namespace platform
