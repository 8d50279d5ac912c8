#pragma once

#include "Halcyonix/SpringTransition.h"

namespace halcyonix {

// Gives the animators of a popover.
class FancyPopoverDelegate : public SpringTransition {
protected:
    std::unique_ptr<SpringAnimator> makeAnimator(AnimationType type) const override;
};

} // namespace halcyonix
