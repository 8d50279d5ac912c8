#include "Quillet/controls/SnippetNavigationController.h"

#include "Quillet/controls/QuilletNavigationBar.h"

namespace quillet {

void SnippetNavigationController::viewDidLoad() {
    NavigationController::viewDidLoad();
    navigationBar().setAppearance(QuilletNavigationBar::programAppearance());
}

} // namespace quillet
