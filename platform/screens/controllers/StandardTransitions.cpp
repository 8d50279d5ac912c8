#include "platform/screens/controllers/StandardTransitions.h"

#include "platform/foundation/FatalError.h"
#include "platform/screens/controllers/CardTransition.h"
#include "platform/screens/controllers/ViewController.h"

namespace platform {

std::shared_ptr<ModalTransition> standardTransition(const ViewController& controller) {
    switch (controller.modalPresentationStyle) {
    case ModalPresentationStyle::Automatic:
        return std::make_shared<CardTransition>(automaticPlacement);
    case ModalPresentationStyle::Popover:
        return std::make_shared<CardTransition>(popoverPlacement);
    case ModalPresentationStyle::OverCurrentContext:
        return std::make_shared<CardTransition>(coveringPlacement);
    case ModalPresentationStyle::Custom:
        break;
    }
    fatalError("A custom presentation has no standard transition");
}

} // namespace platform
