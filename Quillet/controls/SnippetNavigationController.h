#pragma once

#include "platform/screens/controllers/NavigationController.h"

namespace quillet {

// A navigation controller with the looks of QuilletNavigationBar.
class SnippetNavigationController : public platform::NavigationController {
    Q_OBJECT

public:
    using NavigationController::NavigationController;

protected:
    void viewDidLoad() override;
};

} // namespace quillet
