#include "Halcyonix/FancyPopoverPresenter.h"

#include "platform/screens/controllers/SizeClass.h"
#include "platform/screens/controllers/ViewController.h"

#include <algorithm>

namespace halcyonix {

namespace {

// Points.
QSize sizeOver(const platform::ViewController& presenter) {
    if (platform::horizontalSizeClass(presenter) == platform::SizeClass::Regular) return {600, 600};
    return {presenter.width() - 80, std::min(400, presenter.height() - 160)};
}

} // namespace

void FancyPopoverPresenter::present(std::unique_ptr<platform::ViewController> controller,
                                    platform::ViewController& presenter, std::function<void()> completion) {
    m_transition = std::make_shared<FancyPopoverDelegate>();
    if (!controller->preferredContentSize().isValid())
        controller->setPreferredContentSize(sizeOver(presenter));
    controller->modalPresentationStyle = platform::ModalPresentationStyle::Custom;
    controller->modalTransition = m_transition;
    presenter.present(std::move(controller), platform::Animated::Yes, std::move(completion));
}

} // namespace halcyonix
