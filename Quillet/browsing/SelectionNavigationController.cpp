#include "Quillet/browsing/SelectionNavigationController.h"

namespace quillet {

SelectionNavigationController::SelectionNavigationController(std::unique_ptr<SelectionView> view)
    : SnippetNavigationController(std::move(view))
    , m_view(static_cast<SelectionView*>(viewControllers().front())) {}

void SelectionNavigationController::presentSheet(platform::ViewController& presenter,
                                                 std::unique_ptr<SelectionView> view,
                                                 const std::function<void()>& beforeClosing) {
    view->onDismiss = [&presenter, beforeClosing] {
        if (beforeClosing) beforeClosing();
        presenter.dismiss();
    };
    presenter.present(std::unique_ptr<ViewController>(new SelectionNavigationController(std::move(view))));
}

void SelectionNavigationController::cancelPresentation() {
    if (topViewController() == m_view)
        m_view->onDismiss();
    else
        popViewController(); // one step back: the form is left, not the sheet
}

} // namespace quillet
