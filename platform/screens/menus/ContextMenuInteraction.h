#pragma once

#include "platform/screens/menus/Menu.h"

#include <QtCore/QObject>

#include <optional>

namespace platform {

// Gives a widget a context menu: by a right click, by a long press of a finger, and by the menu key or
// Shift+F10 where the widget has the focus. Owned by the widget; main thread.
class ContextMenuInteraction : public QObject {
    Q_OBJECT

public:
    // Gives the menu for a point of the widget, none where there is nothing to do. For the keyboard the point
    // is what `keyboardPoint` says, else the widget's middle.
    using Provider = std::function<std::optional<Menu>(QPoint at)>;

    static ContextMenuInteraction& attach(QWidget& widget, Provider provider);

    std::function<QPoint()> keyboardPoint;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ContextMenuInteraction(QWidget& widget, Provider provider);

    Provider m_provider;
};

} // namespace platform
