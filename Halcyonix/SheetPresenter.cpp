#include "Halcyonix/SheetPresenter.h"

#include "platform/screens/controllers/ViewController.h"

namespace halcyonix {

void SheetPresenter::present(std::unique_ptr<platform::ViewController> controller,
                             platform::ViewController& presenter, std::function<void()> completion) {
    m_transition = std::make_shared<SheetTransitionDelegate>();
    controller->modalPresentationStyle = platform::ModalPresentationStyle::Custom;
    controller->modalTransition = m_transition;
    presenter.present(std::move(controller), platform::Animated::Yes, std::move(completion));
}

} // namespace halcyonix
