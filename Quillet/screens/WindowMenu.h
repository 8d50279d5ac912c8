#pragma once

#include "platform/screens/menus/Menu.h"

#include <QtWidgets/QMenuBar>

namespace quillet {

// The menu bar on top of a wide window, with the shortcuts of what the bars below it have as buttons. A
// narrow window has the buttons alone. Main thread.
class WindowMenu : public QMenuBar {
    Q_OBJECT

public:
    // The menus in order; `parent` outlives what their handlers do.
    WindowMenu(const std::vector<platform::Menu>& menus, QWidget* parent);
};

} // namespace quillet
