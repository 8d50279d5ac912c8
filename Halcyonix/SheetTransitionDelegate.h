#pragma once

#include "Halcyonix/SpringTransition.h"

namespace halcyonix {

// Gives the animators of a sheet.
class SheetTransitionDelegate : public SpringTransition {
protected:
    std::unique_ptr<SpringAnimator> makeAnimator(AnimationType type) const override;
};

} // namespace halcyonix
