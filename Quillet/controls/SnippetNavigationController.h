#pragma once

#include "platform/screens/controllers/NavigationController.h"

namespace quillet {

// A navigation controller with the program's bar: background "backgroundGrey", buttons "accent", title
// "text", no shadow, also while the content is scrolled under it.
class SnippetNavigationController : public platform::NavigationController {
    Q_OBJECT

public:
    using NavigationController::NavigationController;

protected:
    void viewDidLoad() override;
};

} // namespace quillet
