#pragma once

#include "platform/screens/controllers/NavigationBar.h"

namespace quillet {

// The program's bar: background "backgroundGrey", buttons "accent", title "text", no shadow, also while the
// content is scrolled under it. For a screen that has a bar of its own. Main thread.
class QuilletNavigationBar : public platform::NavigationBar {
    Q_OBJECT

public:
    static const Appearance& programAppearance();

    explicit QuilletNavigationBar(QWidget* parent);
};

} // namespace quillet
