#include "Quillet/browsing/SelectionNavigationController.h"

namespace quillet {

SelectionNavigationController::SelectionNavigationController(std::unique_ptr<SelectionView> view)
    : SnippetNavigationController(std::move(view))
    , m_view(static_cast<SelectionView*>(viewControllers().front())) {}

void SelectionNavigationController::present(platform::ViewController& presenter,
                                            std::unique_ptr<SelectionView> view,
                                            const std::function<void()>& beforeClosing) {
    view->onDismiss = [&presenter, beforeClosing] {
        if (beforeClosing) beforeClosing();
        presenter.dismiss();
    };
    presenter.present(std::unique_ptr<ViewController>(new SelectionNavigationController(std::move(view))));
}

void SelectionNavigationController::cancelPresentation() {
    m_view->onDismiss();
}

} // namespace quillet
