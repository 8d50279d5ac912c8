#pragma once

#include "platform/screens/controllers/Presentation.h"

#include <memory>

namespace platform {

// The transition of a controller's presentation style, which is not Custom.
std::shared_ptr<ModalTransition> standardTransition(const ViewController& controller);

} // namespace platform
