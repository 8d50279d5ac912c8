#pragma once

#include <QtWidgets/QMenu>

namespace platform {

// A menu that can show some of its actions as destructive. Main thread.
class RoleMenu : public QMenu {
    Q_OBJECT

public:
    using QMenu::QMenu;

    static void setDestructive(QAction& action);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};

} // namespace platform
